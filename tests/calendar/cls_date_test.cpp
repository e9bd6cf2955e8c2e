#include <cmath>
#include <random>

#include "calendar/class_table.h"
#include "calendar/working_days.h"
#include "frame/date_time.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

constexpr I4 lowest = std::numeric_limits<I4>::min();
constexpr I4 highest = std::numeric_limits<I4>::max();

Date day(I4 year, I4 month, I4 dayOfMonth) {
    return Date{static_cast<R8>(dayNumber(year, month, dayOfMonth))};
}

TEST(ClsDate, ByName) {
    TestPlatform test;
    Variant year(I2{2002});
    const std::vector<NamedCall> calls{
        // clang-format off
        gives(day(1900, 4, 15), u"Paques", I2{1900}), gives(day(1943, 4, 25), u"Paques", I2{1943}),
        gives(day(1954, 4, 18), u"Paques", u"1954"), gives(day(1981, 4, 19), u"Paques", I2{1981}),
        gives(day(2008, 3, 23), u"Paques", I2{2008}), gives(day(2011, 4, 24), u"Paques", I2{2011}),
        gives(day(2049, 4, 18), u"Paques", I2{2049}), gives(day(2076, 4, 19), u"Paques", I4{2076}),
        gives(day(2002, 3, 31), u"Paques", u" 2002 "), fails(13, u"Paques", u"2 002"),
        gives(day(2002, 3, 31), u"Paques", Reference{&year}), gives(day(2000, 4, 23), u"Paques", R8{1999.5}),
        gives(day(1954, 4, 25), u"Paques", R8{1954.4}), gives(day(2000, 4, 17), u"Paques", Variant{}),
        gives(day(2100, 3, 27), u"Paques", I4{2100}), fails(6, u"Paques", I4{32768}),
        fails(5, u"Paques", I2{-1}), fails(5, u"Paques", I2{10000}), fails(94, u"Paques", Null{}),
        gives(u"12/25/2002", u"DateFRtoUS", u"25/12/2002"), gives(u"12/25/02", u"DateFRtoUS", u"25/12/02"),
        gives(u"//", u"DateFRtoUS", u""), gives(u"/2/1//02", u"DateFRtoUS", u"1/2/2002"),
        gives(u"1/1/1", u"DateFRtoUS", u"1"), gives(u"12/25/2 ", u"DateFRtoUS", u"25/12/2002 "),
        gives(u"25/12/2002", u"DateUStoFR", u"12/25/2002"), gives(u"00:00:59", u"SecondeEnHeure", I4{59}),
        gives(u"01:01:01", u"SecondeEnHeure", I4{3661}), gives(u"100:00:00", u"SecondeEnHeure", I4{360000}),
        gives(u"0-1:59:59", u"SecondeEnHeure", I4{-1}), gives(u"0-1:00:00", u"SecondeEnHeure", I4{-3600}),
        gives(u"0-2:59:59", u"SecondeEnHeure", I4{-3601}), gives(u"0-2:00:00", u"SecondeEnHeure", I4{-7200}),
        gives(u"596523:14:07", u"SecondeEnHeure", highest),
        gives(u"0-596524:45:52", u"SecondeEnHeure", lowest),
        gives(I4{86399}, u"HeureEnSeconde", u"31/12/1800 23:59:59"), fails(6, u"HeureEnSeconde", Date{1e9}),
        gives(I4{0}, u"HeureEnSeconde", Date{0.999999}), gives(I4{100}, u"Chrono", I4{100}, I4{200}),
        gives(I4{0}, u"Chrono", I4{200}, I4{200}), gives(I4{2}, u"Chrono", I4{86399}, I4{1}),
        fails(6, u"Chrono", I4{-1}, highest), fails(6, u"Chrono", highest, lowest),
        fails(6, u"Chrono", lowest, I4{0}), gives(lowest + 86399, u"Chrono", I4{1}, lowest),
        gives(I2{20}, u"NBJoursOuvrablesParMois", I2{2}, I2{2}),
        gives(I2{21}, u"NBJoursOuvrablesParMois", I2{2000}, I2{2}),
        gives(I2{21}, u"NBJoursOuvrablesParMois", I2{2002}, I2{0}),
        gives(I2{23}, u"NBJoursOuvrablesParMois", I2{2001}, I2{13}),
        gives(I2{23}, u"NBJoursOuvrablesParMois", I2{9999}, I2{12}),
        fails(5, u"NBJoursOuvrablesParMois", I2{9999}, I2{13}),
        fails(5, u"NBJoursOuvrablesParMois", I2{100}, I2{0}),
        fails(6, u"NBJoursOuvrablesParMois", I2{-1}, I2{32767}),
        gives(I2{5}, u"NBJoursOuvrables", u"06/05/2002", u"2002-05-10"),
        fails(13, u"NBJoursOuvrables", u"31/02/2002", I2{0}),
        // Day 0 is a Saturday, and the end lies in the day before the one that its time counts away from.
        gives(I2{2}, u"NBJoursOuvrables", Date{-3}, Date{-1.5}),
        gives(I2{1}, u"NBJoursOuvrables", Date{-3}, Date{-2.25}),
        gives(I2{5}, u"NBJoursOuvrables", Date{-12}, Date{-7.75}),
        // The month before the year 10000 would be in the calendar again.
        fails(5, u"NBJoursOuvrablesParMois", I2{10000}, I2{0}),
        fails(5, u"NBJoursOuvrablesParMois", I2{10001}, I2{-12}),
        // clang-format on
    };
    expectCallsOfEveryMethod<Cls_Date>(test.platform, calls);
}

bool isWorkingDay(R8 moment) {
    const R8 day = std::trunc(moment);
    if (!(day >= -657434 && day <= 2958465)) raise(ErrorNumber::Overflow);
    return ((static_cast<int>(day) % 7) + 7) % 7 >= 2;  // day 0 is a Saturday
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

/// The count, or the number of its error made negative.
template <class Count>
I4 countOrError(Count count) {
    I4 value = 0;
    const I4 error = errorOf([&] { value = count(); });
    return error == 0 ? value : -error;
}

TEST(WorkingDays, AreThoseOfAStepwiseCount) {
    const auto expectSame = [](R8 start, R8 end) {
        ASSERT_EQ(countOrError([&] { return workingDaysBetween(Date{start}, Date{end}); }),
                  countOrError([&] { return countedStepwise(start, end); }))
            << ::testing::PrintToString(start) << " to " << ::testing::PrintToString(end);
    };
    constexpr R8 starts[] = {
        // clang-format off
        -657435, -657434.999, -40000.25, -100.999999999999986, -1.25, -1e-9, 0, 1e-17, 0.5,
        0.99999999999999989, 1023.9999999999999, 37382, 37382.999999999993, 2950000.0000000005,
        2958460.9999999995, 2958465, 2958465.9999999995, 2958466,
        // clang-format on
    };
    for (const R8 start : starts) {
        for (const R8 span :
             {-1.0, 0.0, 0.4, 0.75, 1.0, 2.5, 7.0, 8.999, 300.5, 9000.0, 45872.0, 45873.0, 1e300}) {
            expectSame(start, start + span);
            expectSame(start, std::floor(start + span));
            expectSame(start, std::nextafter(std::ceil(start + span), 0));
        }
    }
    expectSame(0, std::nan(""));
    std::mt19937_64 random(19541981);
    std::uniform_real_distribution<R8> anywhere(-657440, 2958470), nearZero(-20, 20), span(-5, 2000);
    for (int i = 0; i < 4000; ++i) {
        R8 start = i % 4 == 0 ? nearZero(random) : anywhere(random);
        if (i % 3 == 0) start = std::nextafter(std::round(start), i % 2 == 0 ? -1e9 : 1e9);
        expectSame(start, i % 40 == 1 ? anywhere(random) : start + span(random));
    }
}

}  // namespace
}  // namespace tovera::testing
