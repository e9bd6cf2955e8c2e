#include <algorithm>
#include <cmath>

#include "calendar/cls_date.h"
#include "peers/peers.h"

using namespace tovera;

namespace bench {
namespace {

// Wednesday 1 January 1975 to Friday 30 December 2024.
constexpr Date start{27395};
constexpr Date end{45656};

/// Mondays to Fridays of whole days, both ends included, as a caller would write it in place.
int formula(double first, double last) {
    const auto mondayOf = [](int day) { return day - (day + 5) % 7; };
    const auto workedSince = [](int monday, int day) { return std::min(day - monday, 5); };
    const int from = static_cast<int>(std::floor(first));
    const int to = static_cast<int>(std::floor(last)) + 1;
    const int fromMonday = mondayOf(from);
    const int toMonday = mondayOf(to);
    return (toMonday - fromMonday) / 7 * 5 + workedSince(toMonday, to) - workedSince(fromMonday, from);
}

const Group workingDays([] {
    Cls_Date calendar;
    requireSame(calendar.NBJoursOuvrables(start, end) == formula(start.days, end.days), "working days");
    const auto ours = loopOf([=]() mutable { return calendar.NBJoursOuvrables(opaque(start), end); });
    const auto inPlace = loopOf([] { return formula(opaque(start.days), opaque(end.days)); });
    return std::vector<Row>{
        {"working days of 50 years", ours, {"formula in place", inPlace}, 0.5},
        {"working days of 50 years",
         ours,
         {"QuantLib weekends only", loopIfInstalled(quantLibBusinessDays, start.days, end.days)}},
    };
});

}  // namespace
}  // namespace bench
