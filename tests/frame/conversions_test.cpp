#include "frame/conversions.h"

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

TEST(Conversions, OfEveryType) {
    const struct {
        Variant value;
        Variant (*convert)(const Conversions& convert, const Variant& value);
        Variant expected;
        I4 error = 0;
    } rows[] = {
        // clang-format off
        {R8{2.5}, to<I2>, I2{2}}, {R8{3.5}, to<I2>, I2{4}}, {R8{-2.5}, to<I4>, I4{-2}},
        {R8{32767.49}, to<I2>, I2{32767}}, {R8{32767.5}, to<I2>, {}, 6}, {R8{-32768.5}, to<I2>, I2{-32768}},
        {R8{2147483647.4}, to<I4>, I4{2147483647}}, {R8{2147483648}, to<I4>, {}, 6},
        {R8{255.5}, to<UI1>, {}, 6}, {R8{-0.5}, to<UI1>, UI1{0}}, {I2{-1}, to<UI1>, {}, 6},
        {R8{1e39}, to<R4>, {}, 6}, {True, to<I4>, I4{-1}}, {Date{1.5}, to<R8>, R8{1.5}},
        {VariantBool::ofBits(1), to<VariantBool>, VariantBool::ofBits(1)},
        {Variant{}, to<I2>, I2{0}}, {Variant{}, to<Bstr>, u""}, {Null{}, to<I2>, {}, 94},
        {Null{}, to<Bstr>, {}, 94}, {ErrorCode{5}, to<I4>, {}, 13}, {ObjectRef{}, to<Bstr>, {}, 13},
        {StringArray{}, to<R8>, {}, 13}, {R8{0.1}, to<VariantBool>, True}, {u"Vrai", to<VariantBool>, True},
        {u"FALSE", to<VariantBool>, False}, {u"-2", to<VariantBool>, True}, {u"oui", to<VariantBool>, {}, 13},
        {True, to<Bstr>, u"True"}, {UI1{200}, to<Bstr>, u"200"},
        {u"06/05/2002 12:00", to<Date>, Date{37382.5}}, {u"37382.5", to<Date>, Date{37382.5}},
        {I4{37382}, to<Date>, Date{37382}}, {R8{2958466}, to<Date>, {}, 6}, {R8{-657435}, to<Date>, {}, 6},
        {u"demain", to<Date>, {}, 13}, {Date{37382.75}, to<Bstr>, u"06/05/2002 18:00:00"},
        {R8{0}, to<Bstr>, u"0"}, {R8{-0.0}, to<Bstr>, u"0"}, {R8{-1.5}, to<Bstr>, u"-1.5"},
        {R8{1.0 / 3}, to<Bstr>, u"0.333333333333333"}, {R8{2.0 / 3}, to<Bstr>, u"0.666666666666667"},
        {R8{0.1 + 0.2}, to<Bstr>, u"0.3"}, {R8{999999999999999}, to<Bstr>, u"999999999999999"},
        {R8{1e15}, to<Bstr>, u"1E+15"}, {R8{1234567890123456}, to<Bstr>, u"1.23456789012346E+15"},
        {R8{-1.5e300}, to<Bstr>, u"-1.5E+300"}, {R8{0.0001}, to<Bstr>, u"0.0001"},
        {R8{0.00001}, to<Bstr>, u"1E-05"}, {R8{5e-324}, to<Bstr>, u"4.94065645841247E-324"},
        {R4{0.1F}, to<Bstr>, u"0.1"}, {R4{1234567}, to<Bstr>, u"1234567"},
        {R4{12345678}, to<Bstr>, u"1.234568E+07"}, {I4{-2147483647 - 1}, to<Bstr>, u"-2147483648"},
        // clang-format on
    };
    TestServices services;
    const Conversions convert(services);
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.value) + " to " + ::testing::PrintToString(row.expected));
        auto value = row.value;
        for (const Variant& source : {value, Variant(Reference{&value})}) {
            Variant result;
            EXPECT_EQ(errorOf([&] { result = row.convert(convert, source); }), row.error);
            EXPECT_EQ(result, row.expected);
        }
    }
    services.regional.decimalSeparator = u',';
    EXPECT_EQ(convert.to<Bstr>(R8{1234.5}), u"1234,5");
    EXPECT_EQ(convert.to<Bstr>(R4{-2.5e20F}), u"-2,5E+20");
}

TEST(Conversions, OfTextToNumbers) {
    constexpr auto none = std::optional<R8>();
    const struct {
        std::u16string text;
        std::optional<R8> inPlain, inFrench;
    } rows[] = {
        // clang-format off
        {u"12", 12, 12}, {u" -12 ", -12, -12}, {u"- 12", -12, -12}, {u"1.5", 1.5, none}, {u"1,5", 15, 1.5},
        {u"1,234,567.5", 1234567.5, none}, {u"1 234 567,5", none, 1234567.5}, {u",5", none, 0.5},
        {u"1\u202F234", none, 1234}, {u"1\u00A0234", none, 1234}, {u"1e3", 1000, 1000}, {u"1e", none, none},
        {u"", none, none}, {u"-", none, none}, {u"12x", none, none}, {u"&hff", 255, 255},
        {u"&H8000", -32768, -32768}, {u"&H00008000", 32768, 32768}, {u"&HFFFFFFFF", -1, -1},
        {u"&H100000000", none, none}, {u"&H", none, none}, {u"&HG", none, none}, {u"&H\u0141", none, none},
        {u"&H-1", none, none}, {u"0." + zeros + u"1", 0, none}, {std::u16string(u"1\0", 2), none, none},
        // clang-format on
    };
    const RegionalSettings french{u',', u'\u00A0', DateOrder::DayMonthYear, 2029};
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(Bstr(row.text)));
        EXPECT_EQ(wholeNumber(row.text, {}), row.inPlain);
        EXPECT_EQ(wholeNumber(row.text, french), row.inFrench);
    }
    TestServices services;
    const Conversions convert(services);
    EXPECT_EQ(errorOf([&] { convert.to<R8>(u"-1E309"); }), 6);
    EXPECT_EQ(errorOf([&] { convert.to<R8>(u"12x"); }), 13);
}

TEST(PrefixNumbers, AreReadAsFarAsTheyGo) {
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

TEST(Arithmetic, WidensAndChecks) {
    TestServices services;
    const Arithmetic vb(services);
    Variant linked(I2{4});
    I4 typed = 5;
    using A = Arithmetic;
    const struct {
        Variant a;
        Variant (A::*operation)(const Variant& a, const Variant& b) const;
        Variant b, expected;
        I4 error = 0;
    } rows[] = {
        // clang-format off
        {I2{1}, &A::add, I2{2}, I2{3}}, {I2{32767}, &A::add, I2{1}, I4{32768}},
        {I2{-32768}, &A::subtract, I2{1}, I4{-32769}}, {I4{2147483647}, &A::add, I2{1}, R8{2147483648}},
        {I2{300}, &A::multiply, I2{300}, I4{90000}},
        {I4{-2147483647 - 1}, &A::multiply, I4{-2147483647 - 1}, R8{4611686018427387904}},
        {UI1{200}, &A::add, UI1{55}, UI1{255}}, {UI1{200}, &A::add, UI1{56}, I2{256}},
        {UI1{1}, &A::subtract, UI1{2}, I2{-1}}, {UI1{1}, &A::add, I4{2}, I4{3}},
        {True, &A::add, True, I2{-2}}, {Variant{}, &A::add, I4{2}, I4{2}},
        {Variant{}, &A::multiply, Variant{}, I2{0}}, {R4{1.5F}, &A::add, I2{1}, R4{2.5F}},
        {R4{1.5F}, &A::add, I4{1}, R8{2.5}}, {R4{1.5F}, &A::multiply, R8{2}, R8{3}},
        {R4{3e38F}, &A::add, R4{3e38F}, {}, 6}, {R8{1e308}, &A::multiply, I2{10}, {}, 6},
        {u"2", &A::add, u"3", R8{5}}, {u"2", &A::add, I2{3}, R8{5}}, {u"x", &A::add, I2{3}, {}, 13},
        {Null{}, &A::add, u"x", Null{}}, {I2{1}, &A::modulo, Null{}, Null{}},
        {ErrorCode{1}, &A::add, I2{1}, {}, 13}, {ObjectRef{}, &A::subtract, I2{1}, {}, 13},
        {Reference{&linked}, &A::add, Reference{&typed}, I4{9}}, {I2{-7}, &A::modulo, I2{4}, I4{-3}},
        {I2{7}, &A::modulo, I2{-4}, I4{3}}, {R8{19.5}, &A::modulo, R8{6.5}, I4{2}},
        {u"7", &A::modulo, Reference{&linked}, I4{3}}, {I4{-2147483647 - 1}, &A::modulo, I2{-1}, I4{0}},
        {I2{1}, &A::modulo, R8{0.4}, {}, 11}, {R8{1e10}, &A::modulo, I2{3}, {}, 6},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.a) + " and " + ::testing::PrintToString(row.b));
        Variant result;
        EXPECT_EQ(errorOf([&] { result = (vb.*row.operation)(row.a, row.b); }), row.error);
        EXPECT_EQ(result, row.expected);
    }
}

TEST(Arithmetic, Compares) {
    TestServices services;
    const Arithmetic vb(services);
    constexpr auto less = std::partial_ordering::less;
    constexpr auto equal = std::partial_ordering::equivalent;
    constexpr auto greater = std::partial_ordering::greater;
    constexpr auto unordered = std::partial_ordering::unordered;
    Variant linked(u"a");
    const struct {
        Variant a, b;
        std::partial_ordering expected;
    } rows[] = {
        // clang-format off
        {I2{2}, R8{2}, equal}, {True, I2{0}, less}, {I4{10}, u"9", less}, {u"10", I2{11}, greater},
        {u"a", u"B", greater}, {u"é", u"z", greater}, {u"10", u"9", less}, {Variant{}, I2{0}, equal},
        {Variant{}, u"", equal}, {u"a", Variant{}, greater}, {Variant{}, Variant{}, equal},
        {Null{}, Null{}, unordered}, {Null{}, u"", unordered}, {Reference{&linked}, u"a", equal},
        {Date{2}, I2{3}, less},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.a) + " and " + ::testing::PrintToString(row.b));
        EXPECT_EQ(vb.compare(row.a, row.b), row.expected);
        EXPECT_EQ(vb.compare(row.b, row.a), 0 <=> row.expected);
    }
    EXPECT_EQ(vb.compareToNumber(u" 1954", 1954), equal);
    EXPECT_EQ(vb.compareToNumber(Variant{}, 1), less);
    EXPECT_EQ(vb.compareToNumber(Null{}, 0), unordered);
    EXPECT_EQ(errorOf([&] { vb.compareToNumber(Reference{&linked}, 0); }), 13);
}

}  // namespace
}  // namespace tovera::testing
