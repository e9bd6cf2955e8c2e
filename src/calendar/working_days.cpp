#include "calendar/working_days.h"

#include <algorithm>
#include <cmath>

#include "frame/checked.h"
#include "frame/date_time.h"

namespace tovera {
namespace {

/// Working days among the first days of weeks that begin on Monday.
std::int64_t fromMonday(std::int64_t days) {
    constexpr std::int64_t workingDaysOfWeek = 5;
    return days / 7 * workingDaysOfWeek + std::min(days % 7, workingDaysOfWeek);
}

/// How many of the days start plus 1, plus 2, and so on are not later than end, each of these sums being one
/// `R8` addition.
std::int64_t daysReached(R8 start, R8 end) {
    if (!(end > start)) return 0;
    const R8 beyond = lastDay + 1.0 - start;
    auto count = static_cast<std::int64_t>(std::min(end - start, beyond));
    while (count > 0 && start + static_cast<R8>(count) > end) --count;
    while (start + static_cast<R8>(count + 1) <= end && static_cast<R8>(count) <= beyond) ++count;
    return count;
}

I4 dayAfter(R8 start, std::int64_t steps) {
    return dayOf(Date{start + static_cast<R8>(steps)});
}

/// Working days of the steps from one to another, both included, where each step leads to the next day.
/// A time just before midnight can be rounded into the next day from some step on: one day is passed over.
std::int64_t workingDaysOfSteps(R8 start, std::int64_t from, std::int64_t to) {
    const auto first = dayAfter(start, from);
    if (dayAfter(start, to) - first == to - from) return workingDays(first, to - from + 1);
    auto before = from;
    auto carried = to;
    while (carried - before > 1) {
        const auto middle = before + (carried - before) / 2;
        (dayAfter(start, middle) - first == middle - from ? before : carried) = middle;
    }
    return workingDays(first, carried - from) + workingDays(dayAfter(start, carried), to - carried + 1);
}

}  // namespace

Date dateFromParts(I2 year, I2 month, I2 day, const RegionalSettings& regional) {
    if (year < 0 || year > 9999) raise(ErrorNumber::InvalidCall);
    const auto number = dayNumber(windowedYear(year, regional), month, day);
    if (number < firstDay || number > lastDay) raise(ErrorNumber::InvalidCall);
    return Date{static_cast<R8>(number)};
}

std::int64_t workingDays(I4 first, std::int64_t count) {
    const auto weekday = weekdayFromMonday(first) - 1;
    return fromMonday(weekday + count) - fromMonday(weekday);
}

I2 workingDaysBetween(Date start, Date end) {
    const I4 first = dayOf(start);
    // Without a time part every step is exact.
    if (start.days == first && end >= start) {
        const I4 last = dayOf(Date{std::floor(end.days)});
        return narrow<I2>(workingDays(first, last - first + 1));
    }
    const auto steps = daysReached(start.days, end.days);
    // Time counts away from midnight on both sides of day 0, so that a step from before it stays in that day.
    const bool beforeZero = start.days < 0 && start.days != first;
    const std::int64_t stepsToZero = -first;
    if (!beforeZero || steps <= stepsToZero) return narrow<I2>(workingDaysOfSteps(start.days, 0, steps));
    return narrow<I2>(workingDaysOfSteps(start.days, 0, stepsToZero) +
                      workingDaysOfSteps(start.days, stepsToZero + 1, steps));
}

}  // namespace tovera
