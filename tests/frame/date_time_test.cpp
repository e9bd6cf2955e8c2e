#include "frame/date_time.h"

#include <cmath>

#include "support/test_platform.h"

namespace tovera::testing {
namespace {

TEST(DateTime, DayNumbersFollowTheCalendar) {
    const std::tuple<I4, I4, I4, I4> rows[] = {
        {100, 1, 1, firstDay},   {99, 13, 1, firstDay},     {103, -35, 1, firstDay}, {1899, 12, 30, 0},
        {1900, 2, 29, 61},       {2000, 2, 29, 36585},      {2002, 0, 31, 37256},    {2002, 12, 0, 37590},
        {9999, 12, 31, lastDay}, {10011, -132, 31, lastDay}};
    for (const auto& [year, month, day, number] : rows)
        EXPECT_EQ(dayNumber(year, month, day), number) << year << '-' << month << '-' << day;
}

TEST(DateTime, PartsOfAMoment) {
    const std::tuple<R8, I4, I4, std::u16string_view> rows[] = {
        // clang-format off
        {0, 0, 0, u"00:00:00"}, {-0.25, 0, 21600, u"06:00:00"}, {-1.25, -1, 21600, u"29/12/1899 06:00:00"},
        {37382, 37382, 0, u"06/05/2002"}, {37382 + 86399.4 / 86400, 37382, 86399, u"06/05/2002 23:59:59"},
        {37382 + 86399.6 / 86400, 37382, 86400, u"07/05/2002"}, {0.999999, 0, 86400, u"31/12/1899"},
        {-657434.5, -657434, 43200, u"01/01/0100 12:00:00"},
        // clang-format on
    };
    for (const auto& [days, day, second, text] : rows) {
        EXPECT_EQ(dayOf(Date{days}), day);
        EXPECT_EQ(secondOfDay(Date{days}), second);
        EXPECT_EQ(dateToText(Date{days}, {}), text) << days;
    }
    const std::pair<DateOrder, std::u16string_view> orders[] = {
        {DateOrder::DayMonthYear, u"06/05/2002 06:00:00"},
        {DateOrder::MonthDayYear, u"05/06/2002 06:00:00"},
        {DateOrder::YearMonthDay, u"2002-05-06 06:00:00"}};
    for (const auto& [order, text] : orders)
        EXPECT_EQ(dateToText(Date{37382.25}, {u'.', u',', order, 2029}), text);
    for (const R8 outside : {-657435.0, 2958466.0, 1e300, std::nan(""), 2958465.999999})
        EXPECT_EQ(errorOf([&] { partsOf(Date{outside}); }), 6) << outside;
}

TEST(DateTime, DatesInText) {
    constexpr R8 may6 = 37382;  // 2002
    const std::pair<std::u16string_view, std::array<std::optional<R8>, 3>> rows[] = {
        // clang-format off
        {u"06/05/2002", {{may6, may6 + 30, {}}}}, {u"6.5.02", {{may6, may6 + 30, 38839}}},
        {u"02/05/06", {{38839, 38753, may6}}}, {u"30/12/31", {{11687, {}, 11323}}},
        {u"2002-05-06 12:00", {{may6 + 0.5, may6 + 0.5, may6 + 0.5}}}, {u"01/01/29", {{47119, 47119, 36920}}},
        {u"01/01/30", {{10959, 10959, 36921}}}, {u"28-12-1899 06:00:00", {{-2.25, {}, {}}}},
        {u"100-01-01", {{firstDay, firstDay, firstDay}}}, {u"18:00", {{0.75, 0.75, 0.75}}}, {u"24:00", {}},
        {u"12:60", {}}, {u"12:00:00:00", {}}, {u"31/02/2002", {}}, {u"10/257/2002", {}}, {u"266/01/2002", {}},
        {u"2002-257-10", {}}, {u"2002-01-266", {}}, {u"01/01/65636", {}}, {u"06/05-2002", {}}, {u"06/05", {}},
        {u"/06/05/2002", {}}, {u"06/05/2002 ", {}}, {u"06/05/2002 x", {}}, {u"", {}},
        // clang-format on
    };
    for (const auto& [text, inOrder] : rows) {
        for (const auto order : {DateOrder::DayMonthYear, DateOrder::MonthDayYear, DateOrder::YearMonthDay}) {
            const auto date = parseDate(text, {u'.', u',', order, 2029});
            EXPECT_EQ(date ? std::optional(date->days) : std::nullopt,
                      inOrder.at(static_cast<unsigned>(order)))
                << ::testing::PrintToString(Bstr(text));
        }
    }
    const RegionalSettings earlier{u'.', u',', DateOrder::DayMonthYear, 1999};
    EXPECT_EQ(parseDate(u"31/12/00", earlier), Date{366});
    EXPECT_EQ(parseDate(u"31/12/99", earlier), Date{36525});
}

}  // namespace
}  // namespace tovera::testing
