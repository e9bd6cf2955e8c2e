#include "calendar/working_days.h"

#include <cmath>
#include <random>

#include "frame/date_time.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

bool isWorkingDay(R8 moment) {
    const R8 day = std::trunc(moment);
    if (!(day >= -657434 && day <= 2958465)) raise(ErrorNumber::Overflow);
    const auto fromSaturday = ((static_cast<int>(day) % 7) + 7) % 7;  // day 0 is a Saturday
    return fromSaturday >= 2;
}

/// Day after day, as the count is defined.
I4 countedStepwise(R8 start, R8 end) {
    I4 count = isWorkingDay(start) ? 1 : 0;
    for (R8 step = 1; start + step <= end; ++step) {
        if (isWorkingDay(start + step)) ++count;
        if (count > 32767) raise(ErrorNumber::Overflow);
    }
    return count;
}

template <class Count>
I4 countOrError(Count count) {
    I4 value = 0;
    const I4 error = errorOf([&] { value = count(); });
    return error == 0 ? value : -error;
}

void expectSame(R8 start, R8 end) {
    ASSERT_EQ(countOrError([&] { return I4{workingDaysBetween(Date{start}, Date{end})}; }),
              countOrError([&] { return countedStepwise(start, end); }))
        << ::testing::PrintToString(start) << " to " << ::testing::PrintToString(end);
}

TEST(WorkingDays, OfTheTable) {
    constexpr R8 monday = 37382;  // 6 May 2002
    const struct {
        R8 start, end;
        I4 count;
    } rows[] = {
        // clang-format off
        {monday, monday + 4, 5}, {monday, monday, 1}, {monday - 2, monday - 1, 0}, {monday - 2, monday, 1},
        {monday + 4, monday, 1}, {monday + 5, monday, 0},
        // clang-format on
        {monday + 0.5, monday + 4.25, 4},  // the last day isn't reached
        {monday, monday + 45872, 32767},
        {monday, monday + 45873, -6},
        {-657434, -657434, 1},  // 1 January 100 is a Friday
        // clang-format off
        {-657435, 0, -6}, {2958466, 0, -6}, {2958465, 2958466, -6}, {2958465, 2958465.9, 1},
        {2958465, 1e300, -6}, {0, std::nan(""), 0},
        // clang-format on
    };
    for (const auto& row : rows) {
        const auto count = [&] { return I4{workingDaysBetween(Date{row.start}, Date{row.end})}; };
        EXPECT_EQ(countOrError(count), row.count) << row.start << " to " << row.end;
    }
}

TEST(WorkingDays, AreThoseOfAStepwiseCount) {
    const R8 starts[] = {-657434.999,
                         -657434,
                         -40000.25,
                         -100.999999999999986,
                         -3.5,
                         -1.25,
                         -0.5,
                         -1e-9,
                         0,
                         1e-17,
                         0.5,
                         0.99999999999999989,
                         5.9999999999999991,
                         511.99999999999994,
                         1023.9999999999999,
                         37382.999999999993,
                         65535.999999999993,
                         2950000.0000000005,
                         2958460.9999999995,
                         2958465.25,
                         2958465.9999999995};
    for (const R8 start : starts) {
        for (const R8 span :
             {-1.0, 0.0, 0.4, 0.5, 0.75, 1.0, 2.5, 3.0, 7.0, 8.999, 300.5, 1100.0, 9000.0, 70000.0}) {
            expectSame(start, start + span);
            expectSame(start, std::floor(start + span));
            expectSame(start, std::nextafter(std::ceil(start + span), 0));
        }
    }
    std::mt19937_64 random(19541981);
    std::uniform_real_distribution<R8> anywhere(-657440, 2958470);
    std::uniform_real_distribution<R8> nearZero(-20, 20);
    std::uniform_real_distribution<R8> span(-5, 2000);
    for (int i = 0; i < 4000; ++i) {
        R8 start = i % 4 == 0 ? nearZero(random) : anywhere(random);
        if (i % 3 == 0) start = std::nextafter(std::round(start), i % 2 == 0 ? -1e9 : 1e9);
        expectSame(start, start + span(random));
    }
    for (int i = 0; i < 100; ++i) expectSame(anywhere(random), anywhere(random));
}

}  // namespace
}  // namespace tovera::testing
