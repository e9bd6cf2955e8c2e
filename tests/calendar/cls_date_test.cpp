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

/// The ecclesiastical rule for any Gregorian year, which the members' own rule must meet from 1900 to 2099.
Date easterOf(I4 Y) {
    const I4 a = Y % 19, b = Y / 100, c = Y % 100;
    const I4 h = (19 * a + b - b / 4 - (b - (b + 8) / 25 + 1) / 3 + 15) % 30;
    const I4 l = (32 + 2 * (b % 4) + 2 * (c / 4) - h - c % 4) % 7;
    const I4 n = h + l - 7 * ((a + 11 * h + 22 * l) / 451) + 114;
    return day(Y, n / 31, n % 31 + 1);
}

TEST(ClsDate, Easter) {
    TestPlatform test;
    Cls_Date object(test.platform);
    for (I4 year = 1900; year <= 2099; ++year) EXPECT_EQ(object.Paques(year), easterOf(year)) << year;
}

TEST(ClsDate, ByName) {
    TestPlatform test;
    Variant year(I2{2002});
    const std::vector<NamedCall> calls{
        // clang-format off
        gives(day(2002, 3, 31), u"Paques", u" 2002 "), fails(13, u"Paques", u"2 002"),
        gives(day(2002, 3, 31), u"Paques", Reference{&year}), gives(day(2000, 4, 23), u"Paques", R8{1999.5}),
        gives(day(1954, 4, 25), u"Paques", R8{1954.4}), gives(day(1954, 4, 18), u"Paques", u"1954"),
        gives(day(2000, 4, 17), u"Paques", Variant{}), gives(day(2002, 3, 25), u"Paques", I2{2}),
        gives(day(2100, 3, 27), u"Paques", I4{2100}), fails(13, u"Paques", u"deux mille"),
        fails(6, u"Paques", I4{32768}), fails(6, u"Paques", R8{1e10}), fails(5, u"Paques", I2{-1}),
        fails(5, u"Paques", I2{10000}), fails(94, u"Paques", Null{}), fails(13, u"Paques", ObjectRef{}),
        gives(u"12/25/2002", u"DateFRtoUS", u"25/12/2002"), gives(u"12/25/02", u"DateFRtoUS", u"25/12/02"),
        gives(u"12/31/2002", u"DateFRtoUS", u"31-12-2002"), gives(u"//", u"DateFRtoUS", u""),
        gives(u"/2/1//02", u"DateFRtoUS", u"1/2/2002"), gives(u"1/1/1", u"DateFRtoUS", u"1"),
        gives(u"12/25/2 ", u"DateFRtoUS", u"25/12/2002 "), gives(u"25/12/2002", u"DateUStoFR", u"12/25/2002"),
        gives(u"00:00:00", u"SecondeEnHeure", I4{0}), gives(u"00:00:59", u"SecondeEnHeure", I4{59}),
        gives(u"00:59:59", u"SecondeEnHeure", I4{3599}), gives(u"01:01:01", u"SecondeEnHeure", I4{3661}),
        gives(u"23:59:59", u"SecondeEnHeure", I4{86399}), gives(u"100:00:00", u"SecondeEnHeure", I4{360000}),
        gives(u"0-1:59:59", u"SecondeEnHeure", I4{-1}), gives(u"596523:14:07", u"SecondeEnHeure", highest),
        gives(u"0-596524:45:52", u"SecondeEnHeure", lowest), gives(I4{3661}, u"HeureEnSeconde", u"01:01:01"),
        gives(I4{86399}, u"HeureEnSeconde", u"31/12/1800 23:59:59"),
        gives(I4{0}, u"HeureEnSeconde", Date{37382}), gives(I4{21600}, u"HeureEnSeconde", Date{-1.25}),
        gives(I4{0}, u"HeureEnSeconde", Date{0.999999}), fails(6, u"HeureEnSeconde", Date{1e9}),
        gives(I4{100}, u"Chrono", I4{100}, I4{200}), gives(I4{0}, u"Chrono", I4{200}, I4{200}),
        gives(I4{2}, u"Chrono", I4{86399}, I4{1}), gives(I4{7200}, u"Chrono", I4{82800}, I4{3600}),
        fails(6, u"Chrono", I4{-1}, highest), fails(6, u"Chrono", highest, lowest),
        gives(lowest + 86399, u"Chrono", I4{1}, lowest), fails(6, u"Chrono", lowest, I4{0}),
        gives(I2{20}, u"NBJoursOuvrablesParMois", I2{2}, I2{2}),  // of 2002
        gives(I2{23}, u"NBJoursOuvrablesParMois", I2{9999}, I2{12}),
        fails(5, u"NBJoursOuvrablesParMois", I2{9999}, I2{13}),
        fails(5, u"NBJoursOuvrablesParMois", I2{100}, I2{0}),
        fails(6, u"NBJoursOuvrablesParMois", I2{-1}, I2{32767}),
        fails(5, u"NBJoursOuvrablesParMois", I2{-1}, I2{1}),
        gives(I2{5}, u"NBJoursOuvrables", u"06/05/2002", u"2002-05-10"),
        fails(13, u"NBJoursOuvrables", u"31/02/2002", u"2002-05-10"),
        // clang-format on
    };
    expectCallsOfEveryMethod<Cls_Date>(test.platform, calls);
}

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

TEST(ClsDate, AMonthIsCountedDayByDay) {
    TestPlatform test;
    Cls_Date object(test.platform);
    for (I2 year = 101; year < 9999; year = I2(year + 37)) {
        for (I2 month = -14; month <= 26; ++month) {
            const I4 first = dayNumber(year, month, 1);
            if (first < firstDay || first > lastDay) continue;
            const I4 last = dayNumber(year, month + 1, 1) - 1;
            ASSERT_EQ(object.NBJoursOuvrablesParMois(year, month), countedStepwise(first, last))
                << year << '-' << month;
        }
    }
}

/// The count, or the number of its error made negative.
template <class Count>
I4 countOrError(Count count, R8 start, R8 end) {
    I4 value = 0;
    const I4 error = errorOf([&] { value = count(start, end); });
    return error == 0 ? value : -error;
}

I4 counted(R8 start, R8 end) {
    const auto count = [](R8 from, R8 to) { return workingDaysBetween(Date{from}, Date{to}); };
    return countOrError(count, start, end);
}

void expectSame(R8 start, R8 end) {
    ASSERT_EQ(counted(start, end), countOrError(&countedStepwise, start, end))
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
        {monday + 4, monday, 1}, {monday + 5, monday, 0}, {monday + 0.5, monday + 4.25, 4},
        {monday, monday + 45872, 32767}, {monday, monday + 45873, -6}, {-657434, -657434, 1},
        {-657435, 0, -6}, {2958466, 0, -6}, {2958465, 2958466, -6}, {2958465, 2958465.9, 1},
        {2958465, 1e300, -6}, {0, std::nan(""), 0},
        // clang-format on
    };
    for (const auto& row : rows)
        EXPECT_EQ(counted(row.start, row.end), row.count) << row.start << " to " << row.end;
}

TEST(WorkingDays, AreThoseOfAStepwiseCount) {
    constexpr R8 starts[] = {
        // clang-format off
        -657434.999, -657434, -40000.25, -100.999999999999986, -3.5, -1.25, -0.5, -1e-9, 0, 1e-17, 0.5,
        0.99999999999999989, 5.9999999999999991, 511.99999999999994, 1023.9999999999999, 37382.999999999993,
        65535.999999999993, 2950000.0000000005, 2958460.9999999995, 2958465.25, 2958465.9999999995,
        // clang-format on
    };
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
