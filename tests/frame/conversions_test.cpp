#include "frame/conversions.h"

#include <functional>
#include <limits>

#include "frame/arithmetic.h"
#include "frame/number_text.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

const std::u16string zeros(400, u'0');

template <class T>
Variant to(const Conversions& convert, const Variant& value) {
    return convert.to<T>(value);
}

/// What an operation gives, or the number of the error that it raises.
template <class Operation, class... Arguments>
Variant outcomeOf(Operation operation, const Arguments&... arguments) {
    Variant result;
    const I4 error = errorOf([&] { result = std::invoke(operation, arguments...); });
    return error == 0 ? result : Variant(ErrorCode{error});
}

TEST(Conversions, OfEveryType) {
    using Convert = Variant (*)(const Conversions& convert, const Variant& value);
    constexpr ExactNumber largest{~0ULL, ~0U, 0, true}, tiny{~0ULL, ~0U, 28};
    const std::tuple<Variant, Convert, Variant> rows[] = {
        // clang-format off
        {R8{2.5}, to<I2>, I2{2}}, {R8{3.5}, to<I2>, I2{4}}, {R8{-2.5}, to<I4>, I4{-2}},
        {R8{32767.5}, to<I2>, ErrorCode{6}}, {R8{-32768.5}, to<I2>, I2{-32768}},
        {R8{2147483648}, to<I4>, ErrorCode{6}}, {I2{-1}, to<UI1>, ErrorCode{6}},
        {R8{1e39}, to<R4>, ErrorCode{6}}, {True, to<I4>, I4{-1}}, {Date{1.5}, to<R8>, R8{1.5}},
        {VariantBool::ofBits(1), to<VariantBool>, VariantBool::ofBits(1)}, {Variant{}, to<I2>, I2{0}},
        {Variant{}, to<Bstr>, u""}, {Null{}, to<I2>, ErrorCode{94}}, {Null{}, to<Bstr>, ErrorCode{94}},
        {ErrorCode{5}, to<I4>, ErrorCode{13}}, {ObjectRef{}, to<Bstr>, ErrorCode{13}},
        {StringArray{}, to<R8>, ErrorCode{13}}, {R8{0.1}, to<VariantBool>, True},
        {u"Vrai", to<VariantBool>, True}, {u"FALSE", to<VariantBool>, False}, {u"-2", to<VariantBool>, True},
        {u"oui", to<VariantBool>, ErrorCode{13}}, {True, to<Bstr>, u"True"},
        {u" 06/05/2002 12:00 ", to<Date>, Date{37382.5}}, {u"37382.5", to<Date>, Date{37382.5}},
        {R8{2958466}, to<Date>, ErrorCode{6}}, {Date{37382.75}, to<Bstr>, u"06/05/2002 18:00:00"},
        {R8{-0.0}, to<Bstr>, u"0"}, {R8{2.0 / 3}, to<Bstr>, u"0.666666666666667"},
        {R8{0.1 + 0.2}, to<Bstr>, u"0.3"}, {R8{999999999999999}, to<Bstr>, u"999999999999999"},
        {R8{-1e15}, to<Bstr>, u"-1E+15"}, {R8{0.00001}, to<Bstr>, u"1E-05"}, {R4{0.1F}, to<Bstr>, u"0.1"},
        {R4{12345678}, to<Bstr>, u"1.234568E+07"}, {I4{-2147483647 - 1}, to<Bstr>, u"-2147483648"},
        {largest, to<Bstr>, u"-79228162514264337593543950335"}, {largest, to<R8>, R8{-79228162514264337593543950335.0}},
        {tiny, to<Bstr>, u"7.9228162514264337593543950335"}, {ExactNumber{5, 0, 28}, to<R8>, R8{5e-28}},
        {ExactNumber{9223372036854775807U, 0, 4, true}, to<Bstr>, u"-922337203685477.5807"},
        {ExactNumber{18446744073709551615U}, to<Bstr>, u"18446744073709551615"},
        {ExactNumber{125000, 0, 4}, to<Bstr>, u"12.5"}, {ExactNumber{1200, 0, 2}, to<Bstr>, u"12"},
        {ExactNumber{0, 0, 4, true}, to<Bstr>, u"0"}, {ExactNumber{25000, 0, 4}, to<I2>, I2{2}},
        {ExactNumber{18446744073709551615U}, to<I4>, ErrorCode{6}}, {ExactNumber{1}, to<VariantBool>, True},
        // clang-format on
    };
    TestServices services;
    const Conversions convert(services);
    for (auto [value, toType, expected] : rows) {
        SCOPED_TRACE(::testing::PrintToString(value) + " to " + ::testing::PrintToString(expected));
        for (const Variant& source : {value, Variant(Reference{&value})})
            EXPECT_EQ(outcomeOf(toType, convert, source), expected);
    }
    services.regional = {u',', u'.', DateOrder::MonthDayYear, 2029};
    EXPECT_EQ(convert.to<Bstr>(R8{1234.5}), u"1234,5");
    EXPECT_EQ(convert.to<Bstr>(R4{-2.5e20F}), u"-2,5E+20");
    EXPECT_EQ(convert.to<Date>(u"05/06/2002"), Date{37382});
}

TEST(Numbers, OfWholeTextsInTheUsersSettings) {
    constexpr auto none = std::optional<R8>();
    const std::tuple<std::u16string, std::optional<R8>, std::optional<R8>> rows[] = {
        // clang-format off
        {u" -12 ", -12, -12}, {u"- 12", -12, -12}, {u"1.5", 1.5, none}, {u"1,5", 15, 1.5},
        {u"1,234,567.5", 1234567.5, none}, {u"1 234 567,5", none, 1234567.5}, {u",5", none, 0.5},
        {u"1\u202F234", none, 1234}, {u"1\u00A0234", none, 1234}, {u"1e3", 1000, 1000}, {u"1e", none, none},
        {u"", none, none}, {u"-", none, none}, {u"12x", none, none}, {u"&hff", 255, 255},
        {u"&H8000", -32768, -32768}, {u"&H00008000", 32768, 32768}, {u"&HFFFFFFFF", -1, -1},
        {u"&H100000000", none, none}, {u"&H", none, none}, {u"&HG", none, none}, {u"&H\u0141", none, none},
        {u"0." + zeros + u"1", 0, none}, {std::u16string(u"1\0", 2), none, none},
        // clang-format on
    };
    const RegionalSettings french{u',', u'\u00A0', DateOrder::DayMonthYear, 2029};
    for (const auto& [text, inPlain, inFrench] : rows) {
        EXPECT_EQ(wholeNumber(text, {}), inPlain) << ::testing::PrintToString(Bstr(text));
        EXPECT_EQ(wholeNumber(text, french), inFrench) << ::testing::PrintToString(Bstr(text));
    }
    EXPECT_EQ(errorOf([] { wholeNumber(u"-1E309", {}); }), 6);
}

TEST(Numbers, OfPrefixesReachAsFarAsTheyGo) {
    constexpr R8 largest = std::numeric_limits<R8>::max();
    const std::pair<std::u16string, R8> rows[] = {
        // clang-format off
        {u"", 0}, {u"abc", 0}, {u"12abc", 12}, {u"  -12.5x", -12.5}, {u"+3", 3}, {u"--3", 0}, {u"- 3", 0},
        {u"-.5.5", -0.5}, {u"5.", 5}, {u".", 0}, {u"1,5", 1}, {u"1 2", 1}, {u"1E-3", 0.001}, {u"1e+3", 1000},
        {u"1e", 1}, {u"1e+-3", 1}, {u"1.5e2.5", 150}, {u"&H10", 0}, {u"\u0663", 0}, {u"inf", 0},
        {u"-1e400", -largest}, {u"1e-400", 0}, {u"1e99999999999999999999", largest},
        {u"-1e-99999999999999999999", 0}, {u"0e99999999999", 0}, {u"1" + zeros + u"e-390", 1e10},
        {u"1" + zeros + u"e-5", largest}, {u"0." + zeros + u"1e5", 0}, {u"0." + zeros + u"1e402", 10},
        {u"." + zeros + u"1e800", largest},
        // clang-format on
    };
    for (const auto& [text, value] : rows)
        EXPECT_EQ(prefixNumber(text), value) << ::testing::PrintToString(Bstr(text));
}

TEST(Arithmetic, WidensAndChecks) {
    TestServices services;
    const Arithmetic arithmetic(services);
    Variant linked(I2{4});
    I4 typed = 5;
    using A = Arithmetic;
    using Operation = Variant (A::*)(const Variant& a, const Variant& b) const;
    const std::tuple<Variant, Operation, Variant, Variant> rows[] = {
        // clang-format off
        {I2{32767}, &A::add, I2{1}, I4{32768}}, {I2{-32768}, &A::subtract, I2{1}, I4{-32769}},
        {I4{2147483647}, &A::add, I2{1}, R8{2147483648}}, {I2{300}, &A::multiply, I2{300}, I4{90000}},
        {I4{-2147483647 - 1}, &A::multiply, I4{-2147483647 - 1}, R8{4611686018427387904}},
        {UI1{200}, &A::add, UI1{55}, UI1{255}}, {UI1{200}, &A::add, UI1{56}, I2{256}},
        {UI1{1}, &A::subtract, UI1{2}, I2{-1}}, {UI1{1}, &A::add, I4{2}, I4{3}},
        {True, &A::add, True, I2{-2}}, {Variant{}, &A::multiply, Variant{}, I2{0}},
        {R4{1.5F}, &A::add, I2{1}, R4{2.5F}}, {R4{1.5F}, &A::add, I4{1}, R8{2.5}},
        {R4{3e38F}, &A::add, R4{3e38F}, ErrorCode{6}}, {R8{1e308}, &A::multiply, I2{10}, ErrorCode{6}},
        {u"2", &A::add, u"3", R8{5}}, {u"x", &A::add, I2{3}, ErrorCode{13}}, {Null{}, &A::add, u"x", Null{}},
        {I2{1}, &A::modulo, Null{}, Null{}}, {Reference{&linked}, &A::add, Reference{&typed}, I4{9}},
        {I2{-7}, &A::modulo, I2{4}, I4{-3}}, {R8{19.5}, &A::modulo, R8{-6.5}, I4{2}},
        {u"7", &A::modulo, Reference{&linked}, I4{3}}, {I4{-2147483647 - 1}, &A::modulo, I2{-1}, I4{0}},
        {I2{1}, &A::modulo, R8{0.4}, ErrorCode{11}},
        // clang-format on
    };
    for (const auto& [a, operation, b, expected] : rows)
        EXPECT_EQ(outcomeOf(operation, arithmetic, a, b), expected)
            << ::testing::PrintToString(a) << " and " << ::testing::PrintToString(b);
}

TEST(Arithmetic, Compares) {
    TestServices services;
    const Arithmetic arithmetic(services);
    using Order = std::partial_ordering;
    Variant linked(u"a");
    const std::tuple<Variant, Variant, Order> rows[] = {
        // clang-format off
        {I2{2}, R8{2}, Order::equivalent}, {True, I2{0}, Order::less}, {I4{10}, u"9", Order::less},
        {u"a", u"B", Order::greater}, {u"10", u"9", Order::less}, {Variant{}, I2{0}, Order::equivalent},
        {Variant{}, u"", Order::equivalent}, {u"a", Variant{}, Order::greater},
        {Variant{}, Variant{}, Order::equivalent}, {Null{}, u"", Order::unordered},
        {Reference{&linked}, u"a", Order::equivalent},
        // clang-format on
    };
    for (const auto& [a, b, expected] : rows) {
        SCOPED_TRACE(::testing::PrintToString(a) + " and " + ::testing::PrintToString(b));
        EXPECT_EQ(arithmetic.compare(a, b), expected);
        EXPECT_EQ(arithmetic.compare(b, a), 0 <=> expected);
    }
    EXPECT_EQ(arithmetic.compareToNumber(u" 1954", 1954), Order::equivalent);
    EXPECT_EQ(arithmetic.compareToNumber(Null{}, 0), Order::unordered);
    EXPECT_EQ(errorOf([&] { arithmetic.compareToNumber(Reference{&linked}, 0); }), 13);
}

}  // namespace
}  // namespace tovera::testing
