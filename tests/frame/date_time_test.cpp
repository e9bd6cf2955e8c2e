#include "frame/date_time.h"

#include <cmath>

#include "support/test_platform.h"

namespace tovera::testing {
namespace {

constexpr DateOrder orders[] = {DateOrder::DayMonthYear, DateOrder::MonthDayYear, DateOrder::YearMonthDay};

TEST(DateTime, DayNumbersFollowTheCalendar) {
    const auto leap = [](I4 y) { return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0; };
    const I4 lengths[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    I4 day = firstDay;
    for (I4 year = 100; year <= 9999; ++year) {
        for (I4 month = 1; month <= 12; ++month) {
            ASSERT_EQ(dayNumber(year, month, 1), day) << year << '-' << month;
            ASSERT_EQ(dayNumber(year - 1, month + 12, 1), day);
            ASSERT_EQ(dayNumber(year + 3, month - 36, 1), day);
            const auto parts = partsOf(Date{static_cast<R8>(day)});
            ASSERT_TRUE(parts.year == year && parts.month == month && parts.day == 1);
            day += lengths[month - 1] + (month == 2 && leap(year) ? 1 : 0);
        }
    }
    EXPECT_EQ(day - 1, lastDay);
}

TEST(DateTime, PartsOfAMoment) {
    const struct {
        R8 days;
        I4 day, second;
        std::u16string_view text;
    } rows[] = {
        // clang-format off
        {0, 0, 0, u"00:00:00"}, {0.25, 0, 21600, u"06:00:00"}, {-0.25, 0, 21600, u"06:00:00"},
        {-1.25, -1, 21600, u"29/12/1899 06:00:00"}, {1.5, 1, 43200, u"31/12/1899 12:00:00"},
        {37382, 37382, 0, u"06/05/2002"}, {37382 + 86399.4 / 86400, 37382, 86399, u"06/05/2002 23:59:59"},
        {37382 + 86399.6 / 86400, 37382, 86400, u"07/05/2002"}, {0.999999, 0, 86400, u"31/12/1899"},
        {-657434.5, -657434, 43200, u"01/01/0100 12:00:00"},
        {2958465.5, 2958465, 43200, u"31/12/9999 12:00:00"},
        // clang-format on
    };
    for (const auto& row : rows) {
        EXPECT_EQ(dayOf(Date{row.days}), row.day);
        EXPECT_EQ(secondOfDay(Date{row.days}), row.second);
        EXPECT_EQ(dateToText(Date{row.days}, {}), row.text) << row.days;
    }
    for (const R8 outside : {-657435.0, 2958466.0, 1e300, std::nan("")})
        EXPECT_EQ(errorOf([&] { dayOf(Date{outside}); }), 6);
    EXPECT_EQ(errorOf([] { partsOf(Date{2958465.999999}); }), 6);  // rounds out of the calendar
}

TEST(DateTime, DatesInText) {
    constexpr auto none = std::optional<R8>();
    constexpr R8 may6 = 37382;  // 2002
    const struct {
        std::u16string_view text;
        std::optional<R8> inOrder[3];
    } rows[] = {
        // clang-format off
        {u"06/05/2002", {may6, may6 + 30, none}}, {u"2002-05-06", {may6, may6, may6}},
        {u"2002-05-06 12:00", {may6 + 0.5, may6 + 0.5, may6 + 0.5}}, {u"6.5.02", {may6, may6 + 30, 38839}},
        {u"01/01/29", {47119, 47119, 36920}}, {u"01/01/30", {10959, 10959, 36921}},
        {u"31/12/1899", {1, none, none}}, {u"28-12-1899 06:00:00", {-2.25, none, none}},
        {u"18:00", {0.75, 0.75, 0.75}}, {u"23:59:59", {86399.0 / 86400, 86399.0 / 86400, 86399.0 / 86400}},
        {u"24:00", {}}, {u"12:60", {}}, {u"12:00:00:00", {}}, {u"31/02/2002", {}}, {u"10/257/2002", {}},
        {u"266/01/2002", {}}, {u"2002-257-10", {}}, {u"2002-01-266", {}}, {u"01/01/99999", {}},
        {u"01/01/65636", {}}, {u"06/05-2002", {}}, {u"06/05", {}}, {u"/06/05/2002", {}}, {u"06/05/2002 ", {}},
        {u"06/05/2002 x", {}}, {u"", {}}, {u"99999999999/1/1", {}},
        // clang-format on
    };
    for (const auto& row : rows) {
        for (const auto order : orders) {
            const auto date = parseDate(row.text, {u'.', u',', order, 2029});
            EXPECT_EQ(date ? std::optional(date->days) : none, row.inOrder[static_cast<int>(order)])
                << ::testing::PrintToString(Bstr(row.text));
        }
    }
    const RegionalSettings earlier{u'.', u',', DateOrder::DayMonthYear, 1999};
    EXPECT_EQ(parseDate(u"31/12/00", earlier), Date{366});
    EXPECT_EQ(parseDate(u"31/12/99", earlier), Date{36525});
}

TEST(DateTime, TextAndBack) {
    for (const auto order : orders) {
        const RegionalSettings regional{u'.', u',', order, 2029};
        for (R8 day = -657434; day < 2958465; day += 1009) {
            const Date moment{day < 0 ? day - 0.25 : day + 0.25};
            ASSERT_EQ(parseDate(dateToText(moment, regional), regional), moment) << day;
        }
    }
}

}  // namespace
}  // namespace tovera::testing
