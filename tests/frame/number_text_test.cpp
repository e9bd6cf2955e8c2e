#include "frame/number_text.h"

#include <cmath>
#include <limits>

#include "support/test_platform.h"

namespace tovera::testing {
namespace {

const std::u16string zeros(400, u'0');

TEST(NumberText, ShortestForm) {
    const struct {
        R8 value;
        std::u16string_view text;
    } rows[] = {
        // clang-format off
        {0, u"0"}, {-0.0, u"0"}, {1, u"1"}, {-1.5, u"-1.5"}, {0.1, u"0.1"}, {1.0 / 3, u"0.333333333333333"},
        {2.0 / 3, u"0.666666666666667"}, {123456789012345, u"123456789012345"},
        {999999999999999, u"999999999999999"}, {1e15, u"1E+15"}, {1234567890123456, u"1.23456789012346E+15"},
        {-1.5e300, u"-1.5E+300"}, {0.0001, u"0.0001"}, {0.00001, u"1E-05"},
        {5e-324, u"4.94065645841247E-324"}, {0.1 + 0.2, u"0.3"},
        // clang-format on
    };
    for (const auto& row : rows) EXPECT_EQ(numberToText(row.value), row.text);
    EXPECT_EQ(numberToText(R4{0.1F}, u','), u"0,1");
    EXPECT_EQ(numberToText(R4{1234567}), u"1234567");
    EXPECT_EQ(numberToText(R4{12345678}), u"1.234568E+07");
    EXPECT_EQ(numberToText(R8{2.5e20}, u','), u"2,5E+20");
    EXPECT_EQ(numberToText(std::numeric_limits<I4>::min()), u"-2147483648");
}

TEST(NumberText, PrefixNumbers) {
    constexpr R8 largest = std::numeric_limits<R8>::max();
    const struct {
        std::u16string text;
        R8 value;
    } rows[] = {
        // clang-format off
        {u"", 0}, {u"   ", 0}, {u"abc", 0}, {u"12abc", 12}, {u"  -12.5x", -12.5}, {u"+3", 3}, {u"--3", 0},
        {u"- 3", 0}, {u".5", 0.5}, {u"-.5.5", -0.5}, {u"5.", 5}, {u".", 0}, {u"1,5", 1}, {u"1 2", 1},
        {u"1e3", 1000}, {u"1E-3", 0.001}, {u"1e+3", 1000}, {u"1e", 1}, {u"1e+", 1}, {u"1e+-3", 1}, {u"e3", 0},
        {u"1.5e2.5", 150}, {u"0x10", 0}, {u"&H10", 0}, {u"007", 7}, {u"-5|", -5}, {u"\u0663", 0}, {u"inf", 0},
        {u"nan", 0}, {u"1e400", largest}, {u"-1e400", -largest}, {u"1e-400", 0},
        {u"1e99999999999999999999", largest}, {u"-1e-99999999999999999999", 0}, {u"0e99999999999", 0},
        {u"1" + zeros, largest}, {u"1" + zeros + u"e-390", 1e10}, {u"1" + zeros + u"e-5", largest},
        {u"0." + zeros + u"1", 0}, {u"0." + zeros + u"1e5", 0}, {u"0." + zeros + u"1e402", 10},
        {u"." + zeros + u"1e800", largest},
        // clang-format on
    };
    for (const auto& row : rows) {
        EXPECT_EQ(prefixNumber(row.text), row.value) << ::testing::PrintToString(Bstr(row.text));
    }
}

TEST(NumberText, WholeNumbers) {
    const RegionalSettings plain;
    const RegionalSettings french{u',', u'\u00A0', DateOrder::DayMonthYear, 2029};
    constexpr auto none = std::optional<R8>();
    const struct {
        std::u16string text;
        std::optional<R8> inPlain, inFrench;
    } rows[] = {
        // clang-format off
        {u"12", 12, 12}, {u" -12 ", -12, -12}, {u"- 12", -12, -12}, {u"1.5", 1.5, none}, {u"1,5", 15, 1.5},
        {u"1,234,567.5", 1234567.5, none}, {u"1 234 567,5", none, 1234567.5}, {u",5", none, 0.5},
        {u"1e3", 1000, 1000}, {u"1e", none, none}, {u"", none, none}, {u"-", none, none}, {u"1 2", none, 12},
        {u"&hff", 255, 255}, {u"&H8000", -32768, -32768}, {u"&H00008000", 32768, 32768},
        {u"&HFFFFFFFF", -1, -1}, {u"&H100000000", none, none}, {u"&H", none, none}, {u"&HG", none, none},
        {u"&H\u0141", none, none}, {u"&H-1", none, none}, {u"0." + zeros + u"1", 0, none},
        {std::u16string(u"1\0", 2), none, none},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(Bstr(row.text)));
        EXPECT_EQ(wholeNumber(row.text, plain), row.inPlain);
        EXPECT_EQ(wholeNumber(row.text, french), row.inFrench);
    }
    EXPECT_EQ(errorOf([&] { wholeNumber(u"-1E309", plain); }), 6);
}

}  // namespace
}  // namespace tovera::testing
