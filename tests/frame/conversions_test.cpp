#include "frame/conversions.h"

#include "frame/arithmetic.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

RegionalSettings french() {
    return {u',', u'\u202F', DateOrder::DayMonthYear, 2029};
}

enum class To { UI1, I2, I4, R4, R8, Truth, Date, Text };

Variant converted(const Conversions& convert, const Variant& value, To type) {
    switch (type) {
        case To::UI1:
            return convert.to<UI1>(value);
        case To::I2:
            return convert.to<I2>(value);
        case To::I4:
            return convert.to<I4>(value);
        case To::R4:
            return convert.to<R4>(value);
        case To::R8:
            return convert.to<R8>(value);
        case To::Truth:
            return convert.to<VariantBool>(value);
        case To::Date:
            return convert.to<Date>(value);
        default:
            return convert.to<Bstr>(value);
    }
}

struct Conversion {
    Variant value;
    To type;
    Variant expected;
    I4 error = 0;
};

void expectConversions(const RegionalSettings& regional, const std::vector<Conversion>& rows) {
    TestServices services;
    services.regional = regional;
    const Conversions convert(services);
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.value) + " to " +
                     std::to_string(static_cast<int>(row.type)));
        auto value = row.value;
        for (const Variant& source : {value, Variant(Reference{&value})}) {
            Variant result;
            EXPECT_EQ(errorOf([&] { result = converted(convert, source, row.type); }), row.error);
            EXPECT_EQ(result, row.expected);
        }
    }
}

TEST(Conversions, OfEveryType) {
    expectConversions({}, {
                              // clang-format off
        {R8{2.5}, To::I2, I2{2}}, {R8{3.5}, To::I2, I2{4}}, {R8{-2.5}, To::I4, I4{-2}},
        {R8{32767.49}, To::I2, I2{32767}}, {R8{32767.5}, To::I2, {}, 6}, {R8{-32768.5}, To::I2, I2{-32768}},
        {R8{2147483647.4}, To::I4, I4{2147483647}}, {R8{2147483648}, To::I4, {}, 6},
        {R8{255.5}, To::UI1, {}, 6}, {R8{-0.5}, To::UI1, UI1{0}}, {I2{-1}, To::UI1, {}, 6},
        {I4{256}, To::UI1, {}, 6}, {I4{-32769}, To::I2, {}, 6}, {UI1{255}, To::I2, I2{255}},
        {R8{1e39}, To::R4, {}, 6}, {R8{0.1}, To::R4, R4{0.1F}}, {VariantBool(true), To::I4, I4{-1}},
        {VariantBool::ofBits(1), To::Truth, VariantBool::ofBits(1)}, {Date{1.5}, To::R8, R8{1.5}},
        {Variant{}, To::I2, I2{0}}, {Variant{}, To::Text, u""}, {Variant{}, To::Truth, VariantBool(false)},
        {Null{}, To::I2, {}, 94}, {Null{}, To::Text, {}, 94}, {Null{}, To::Truth, {}, 94},
        {ErrorCode{5}, To::I4, {}, 13}, {ObjectRef{}, To::Text, {}, 13}, {StringArray{}, To::R8, {}, 13},
        {I2{7}, To::Truth, VariantBool(true)}, {R8{0.1}, To::Truth, VariantBool(true)},
        {u"Vrai", To::Truth, VariantBool(true)}, {u"FALSE", To::Truth, VariantBool(false)},
        {u"-2", To::Truth, VariantBool(true)}, {u"oui", To::Truth, {}, 13},
        {VariantBool(true), To::Text, u"True"}, {UI1{200}, To::Text, u"200"},
        {I4{-2147483647}, To::Text, u"-2147483647"}, {R4{0.1F}, To::Text, u"0.1"},
        {R8{0.1}, To::Text, u"0.1"}, {u" 12.5 ", To::R8, R8{12.5}}, {u"1,234.5", To::R8, R8{1234.5}},
        {u"&HFF", To::I2, I2{255}}, {u"&hFFFF", To::I4, I4{-1}}, {u"1E400", To::R8, {}, 6},
        {u"1E5", To::I2, {}, 6}, {u"", To::R8, {}, 13}, {u"12x", To::R8, {}, 13},
        {u"06/05/2002 12:00", To::Date, Date{37382.5}}, {u"37382.5", To::Date, Date{37382.5}},
        {I4{37382}, To::Date, Date{37382}}, {R8{2958466}, To::Date, {}, 6}, {R8{-657435}, To::Date, {}, 6},
        {u"demain", To::Date, {}, 13}, {Date{37382.75}, To::Text, u"06/05/2002 18:00:00"},
                              // clang-format on
                          });
}

TEST(Conversions, InAFrenchLocale) {
    expectConversions(french(), {
                                    // clang-format off
        {R8{1234.5}, To::Text, u"1234,5"}, {R4{-0.5F}, To::Text, u"-0,5"}, {u"1234,5", To::R8, R8{1234.5}},
        {u"1\u202F234,5", To::R8, R8{1234.5}}, {u"1\u00A0234,5", To::R8, R8{1234.5}},
        {u"1 234,5", To::R8, R8{1234.5}}, {u"1.5", To::R8, {}, 13},
                                    // clang-format on
                                });
}

enum class Op { Add, Subtract, Multiply, Modulo };

TEST(Arithmetic, WidensAndChecks) {
    TestServices services;
    const Arithmetic vb(services);
    Variant linked(I2{4});
    I4 typed = 5;
    const struct {
        Variant a;
        Op op;
        Variant b, expected;
        I4 error = 0;
    } rows[] = {
        // clang-format off
        {I2{1}, Op::Add, I2{2}, I2{3}}, {I2{32767}, Op::Add, I2{1}, I4{32768}},
        {I2{-32768}, Op::Subtract, I2{1}, I4{-32769}}, {I4{2147483647}, Op::Add, I2{1}, R8{2147483648}},
        {I2{300}, Op::Multiply, I2{300}, I4{90000}},
        {I4{-2147483647 - 1}, Op::Multiply, I4{-2147483647 - 1}, R8{4611686018427387904}},
        {UI1{200}, Op::Add, UI1{55}, UI1{255}}, {UI1{200}, Op::Add, UI1{56}, I2{256}},
        {UI1{1}, Op::Subtract, UI1{2}, I2{-1}}, {UI1{1}, Op::Add, I4{2}, I4{3}},
        {VariantBool(true), Op::Add, VariantBool(true), I2{-2}}, {Variant{}, Op::Add, I4{2}, I4{2}},
        {Variant{}, Op::Multiply, Variant{}, I2{0}}, {R4{1.5F}, Op::Add, I2{1}, R4{2.5F}},
        {R4{1.5F}, Op::Add, I4{1}, R8{2.5}}, {R4{1.5F}, Op::Multiply, R8{2}, R8{3}},
        {R4{3e38F}, Op::Add, R4{3e38F}, {}, 6}, {R8{1e308}, Op::Multiply, I2{10}, {}, 6},
        {u"2", Op::Add, u"3", R8{5}}, {u"2", Op::Add, I2{3}, R8{5}}, {u"x", Op::Add, I2{3}, {}, 13},
        {Null{}, Op::Add, u"x", Null{}}, {I2{1}, Op::Modulo, Null{}, Null{}},
        {ErrorCode{1}, Op::Add, I2{1}, {}, 13}, {ObjectRef{}, Op::Subtract, I2{1}, {}, 13},
        {Reference{&linked}, Op::Add, Reference{&typed}, I4{9}}, {I2{-7}, Op::Modulo, I2{4}, I4{-3}},
        {I2{7}, Op::Modulo, I2{-4}, I4{3}}, {R8{19.5}, Op::Modulo, R8{6.5}, I4{2}},
        {u"7", Op::Modulo, Reference{&linked}, I4{3}}, {I4{-2147483647 - 1}, Op::Modulo, I2{-1}, I4{0}},
        {I2{1}, Op::Modulo, R8{0.4}, {}, 11}, {R8{1e10}, Op::Modulo, I2{3}, {}, 6},
        // clang-format on
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(::testing::PrintToString(row.a) + " and " + ::testing::PrintToString(row.b));
        Variant result;
        EXPECT_EQ(errorOf([&] {
                      result = row.op == Op::Add        ? vb.add(row.a, row.b)
                               : row.op == Op::Subtract ? vb.subtract(row.a, row.b)
                               : row.op == Op::Multiply ? vb.multiply(row.a, row.b)
                                                        : vb.modulo(row.a, row.b);
                  }),
                  row.error);
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
        {I2{2}, R8{2}, equal}, {VariantBool(true), I2{0}, less},
        {I4{10}, u"9", less}, {u"10", I2{11}, greater}, {u"a", u"B", greater}, {u"é", u"z", greater},
        {u"10", u"9", less}, {Variant{}, I2{0}, equal}, {Variant{}, u"", equal}, {u"a", Variant{}, greater},
        {Variant{}, Variant{}, equal}, {Null{}, Null{}, unordered},
        {Null{}, u"", unordered}, {Reference{&linked}, u"a", equal}, {Date{2}, I2{3}, less},
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
