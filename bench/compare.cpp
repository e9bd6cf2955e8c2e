#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <vector>

#include "bench.h"

namespace bench {
namespace {

using Clock = std::chrono::steady_clock;
using Nanoseconds = std::chrono::duration<double, std::nano>;

constexpr int rounds = 301;
constexpr Nanoseconds roundTime = std::chrono::microseconds(200);

Nanoseconds timeOf(const Loop& loop, std::size_t times) {
    const auto start = Clock::now();
    loop(times);
    return Clock::now() - start;
}

/// How often an operation runs in about the time of a round.
std::size_t timesOfRound(const Loop& loop) {
    std::size_t times = 1;
    while (timeOf(loop, times) < roundTime) times *= 2;
    return times;
}

}  // namespace

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::ranges::nth_element(values, middle);
    return *middle;
}

Timing compare(const Loop& ours, const Loop& peer) {
    const auto timesOurs = timesOfRound(ours);
    const auto timesPeer = timesOfRound(peer);
    std::vector<double> nsOurs;
    std::vector<double> nsPeer;
    std::vector<double> ratios;
    for (int round = 0; round < rounds; ++round) {
        const auto measure = [&](bool isOurs) {
            const auto times = isOurs ? timesOurs : timesPeer;
            (isOurs ? nsOurs : nsPeer)
                .push_back(timeOf(isOurs ? ours : peer, times).count() / static_cast<double>(times));
        };
        const bool oursFirst = round % 2 == 0;  // what one leaves running meets the other as often
        measure(oursFirst);
        measure(!oursFirst);
        ratios.push_back(nsPeer.back() / nsOurs.back());
    }
    return {median(nsOurs), median(nsPeer), median(ratios)};
}

void requireSame(bool same, std::string_view what) {
    if (same) return;
    std::cerr << "bench: results differ: " << what << '\n';
    std::exit(EXIT_FAILURE);
}

}  // namespace bench
