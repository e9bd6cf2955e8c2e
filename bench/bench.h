#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

// Our operations against what a user would take instead: rows, the groups that they stand in, and the loops
// that are timed.
namespace bench {

/// Runs an operation a number of times. Empty for a peer that isn't installed.
using Loop = std::function<void(std::size_t times)>;

/// Makes the compiler compute a value that nobody reads.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "g"(&value) : "memory");
}

/// The same value, which the compiler no longer knows.
template <class T>
T opaque(T value) {
    asm volatile("" : "+m"(value));
    return value;
}

template <class Operation>
Loop loopOf(Operation operation) {
    return [operation](std::size_t times) mutable {
        for (; times > 0; --times) keep(operation());
    };
}

struct Peer {
    std::string_view name;
    Loop loop;
};

/// Medians over the rounds of one row: nanoseconds of one operation, and the ratio of peer to ours.
struct Timing {
    double ours = 0;
    double peer = 0;
    double ratio = 0;
};

/// One comparison. The target is how many times as fast as the peer we have to be at least; 0 for none.
struct Row {
    std::string name;
    Loop ours;
    Peer peer;
    double target = 0;
    /// Where the two are measured in a way of their own, and ours may be by so many nanoseconds above.
    std::function<Timing()> measure = {};
    double mostAbove = 0;
};

/// The rows of a subject. A group puts itself on the list; its rows are made when it is run.
class Group {
  public:
    using MakeRows = std::vector<Row> (*)();
    explicit Group(MakeRows rows) { all().push_back(rows); }

    static std::vector<MakeRows>& all() {
        static std::vector<MakeRows> groups;
        return groups;
    }
};

/// Times both in turn, round by round, so that both meet the same noise.
Timing compare(const Loop& ours, const Loop& peer);

double median(std::vector<double> values);

/// Ends the run when ours and the peer don't give the same: what differs isn't comparable.
void requireSame(bool same, std::string_view what);

}  // namespace bench
