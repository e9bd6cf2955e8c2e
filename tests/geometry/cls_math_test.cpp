#include <cmath>
#include <random>

#include "geometry/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

constexpr R8 pi = 3.14;

/// Turn after turn, as the reduction is defined.
R8 reducedStepwise(R8 angle) {
    while (angle > pi) angle -= 2 * pi;
    while (angle < -pi) angle += 2 * pi;
    return angle;
}

class ClsMath : public ::testing::Test {
  protected:
    void expectReducedAsStepwise(R8 angle) {
        Variant variable(angle);
        const R4 result = object.MesurePrincipale(variable);
        const R8 expected = reducedStepwise(angle);
        ASSERT_EQ(variable, Variant(expected)) << ::testing::PrintToString(angle);
        ASSERT_EQ(result, static_cast<R4>(expected));
    }

    TestPlatform test;
    Cls_Math object{test.platform};
};

TEST_F(ClsMath, AnglesAreReducedTurnByTurn) {
    std::mt19937_64 random(314);
    std::uniform_real_distribution<R8> mantissa(1, 2);
    for (int exponent = 0; exponent <= 22; ++exponent) {
        const int count = exponent < 18 ? 200 : 6;
        for (int i = 0; i < count; ++i) {
            const R8 angle = std::ldexp(mantissa(random), exponent);
            expectReducedAsStepwise(i % 2 == 0 ? angle : -angle);
        }
        const R8 power = std::ldexp(1.0, exponent);
        for (const R8 edge : {power, std::nextafter(power, 0), std::nextafter(power, 1e9)}) {
            expectReducedAsStepwise(edge);
            expectReducedAsStepwise(-edge);
        }
    }
    for (int turns = 0; turns < 3000; ++turns) {
        const R8 edge = pi + turns * 2 * pi;
        for (const R8 angle : {edge, std::nextafter(edge, 0), std::nextafter(edge, 1e9)}) {
            expectReducedAsStepwise(angle);
            expectReducedAsStepwise(-angle);
        }
    }
    expectReducedAsStepwise(1e8);
}

TEST_F(ClsMath, HugeAnglesEndAtOnceWithinTheRange) {
    for (R8 size = 1e9; size < 1e300; size *= 7) {
        for (const R8 angle : {size, -size}) {
            Variant variable(angle);
            const R4 result = object.MesurePrincipale(variable);
            ASSERT_LE(std::fabs(*variable.as<R8>()), pi) << angle;
            ASSERT_EQ(result, static_cast<R4>(*variable.as<R8>()));
        }
    }
    for (const R8 endless : {std::numeric_limits<R8>::infinity(), -std::numeric_limits<R8>::infinity()}) {
        Variant variable(endless);
        EXPECT_EQ(errorOf([&] { object.MesurePrincipale(variable); }), 6);
        EXPECT_EQ(variable, Variant(endless));
    }
}

TEST_F(ClsMath, TheReducedAngleIsInTheCallersVariable) {
    const struct {
        Variant before, after;
        R4 result;
        I4 error = 0;
    } rows[] = {
        // clang-format off
        {R8{3.14}, R8{3.14}, 3.14F}, {R8{-3.14}, R8{-3.14}, -3.14F}, {R8{3.15}, R8{3.15 - 6.28}, -3.13F},
        {R8{-3.15}, R8{-3.15 + 6.28}, 3.13F}, {I2{10}, R8{10 - 6.28 - 6.28}, -2.56F},
        {u"10", R8{10 - 6.28 - 6.28}, -2.56F}, {R8{6.28}, R8{0}, 0}, {I2{3}, I2{3}, 3}, {u" 3 ", u" 3 ", 3},
        {Variant{}, Variant{}, 0}, {R4{3.5F}, R8{3.5 - 6.28}, -2.78F}, {u"dix", u"dix", 0, 13},
        {Null{}, Null{}, 0, 94},
        // clang-format on
    };
    for (const auto& row : rows) {
        Variant far = row.before;
        Variant variables[] = {row.before, Reference{&far}};
        for (auto& variable : variables) {
            R4 result = 0;
            EXPECT_EQ(errorOf([&] { result = object.MesurePrincipale(variable); }), row.error);
            EXPECT_EQ(result, row.result);
        }
        EXPECT_EQ(variables[0], row.after);
        EXPECT_EQ(far, row.after);
    }
    R8 number = 10;
    Variant reference(Reference{&number});
    object.MesurePrincipale(reference);
    EXPECT_EQ(number, 10 - 6.28 - 6.28);
}

/// The first grid angle whose band holds x, searched as it is defined.
template <class Function>
R4 searched(R8 x, Function function) {
    const R8 half = pi / 200;
    for (R8 i = 0; i <= 2 * pi; i += pi / 100) {
        const R8 low = std::min(function(i - half), function(i + half));
        const R8 high = std::max(function(i - half), function(i + half));
        if (x >= low && x <= high) return static_cast<R4>(i);
    }
    return 0;
}

TEST_F(ClsMath, InverseFunctionsGiveTheGridOfTheSearch) {
    const auto cosine = [](R8 a) { return std::cos(a); };
    const auto sine = [](R8 a) { return std::sin(a); };
    const auto expectSame = [&](R8 x) {
        ASSERT_EQ(object.InverseCosinus(x), searched(x, cosine)) << ::testing::PrintToString(x);
        ASSERT_EQ(object.InverseSinus(x), searched(x, sine)) << ::testing::PrintToString(x);
    };
    int bands = 0;
    for (R8 i = 0; i <= 2 * pi; i += pi / 100, ++bands) {
        for (const R8 edge :
             {cosine(i - pi / 200), cosine(i + pi / 200), sine(i - pi / 200), sine(i + pi / 200)}) {
            for (const R8 x : {edge, std::nextafter(edge, -2), std::nextafter(edge, 2)}) expectSame(x);
        }
    }
    EXPECT_EQ(bands, 201);
    std::mt19937_64 random(201);
    std::uniform_real_distribution<R8> anywhere(-1.05, 1.05);
    for (int i = 0; i < 3000; ++i) expectSame(anywhere(random));
    for (const R8 x : {-1.0, -0.0, 0.0, 1.0, 1e300, -1e300, std::nan("")}) expectSame(x);
}

TEST_F(ClsMath, ByName) {
    std::vector<NamedCall> calls{
        // clang-format off
        gives(R4{-2.56F}, u"MesurePrincipale", I2{10}),
        gives(R8{5}, u"Hypothenuse", I2{0}, I2{0}, u"3", I4{4}),
        gives(R8{0}, u"Hypothenuse", I2{7}, R8{0.5}, I2{7}, R8{0.5}),
        gives(R8{65535}, u"Hypothenuse", I2{32767}, I2{0}, I2{-32768}, Variant{}),
        fails(6, u"Hypothenuse", R8{1e200}, I2{0}, I2{0}, I2{0}),
        fails(13, u"Hypothenuse", u"a", I2{0}, I2{0}, I2{0}),
        fails(94, u"Hypothenuse", Null{}, I2{0}, I2{0}, I2{0}), gives(R4{1.57F}, u"InverseCosinus", I2{0}),
        gives(R4{1.0362F}, u"InverseCosinus", R8{0.5}), gives(R4{2.1038F}, u"InverseCosinus", R8{-0.5}),
        gives(searched(0.9999, [](R8 a) { return std::cos(a); }), u"InverseCosinus", R8{0.9999}),
        gives(R4{0}, u"InverseCosinus", R8{1.5}), gives(R4{0}, u"InverseCosinus", u"0.5"),
        gives(R4{0}, u"InverseCosinus", u"abc"), gives(R4{0}, u"InverseCosinus", Null{}),
        gives(R4{1.57F}, u"InverseCosinus", Variant{}), gives(R4{0.5338F}, u"InverseSinus", R8{0.5}),
        gives(R4{1.4444F}, u"InverseSinus", R8{0.99}), gives(R4{3.6738F}, u"InverseSinus", R8{-0.5}),
        gives(R4{0}, u"InverseSinus", VariantBool(true)), fails(13, u"InverseSinus", ObjectRef{}),
        fails(6, u"AngleTrigo", I2{5}, I2{7}, I2{5}, I2{7}),
        fails(13, u"AngleTrigo", u"x", I2{7}, I2{5}, I2{7}),
        // clang-format on
        fails(449, u"AngleTrigo", I2{1}, I2{1}, I2{0})};
    expectCallsOfEveryMethod<Cls_Math>(test.platform, calls);
    EXPECT_NEAR(object.InverseCosinus(R8{0.9999}), 6.28, 1e-5);
}

TEST_F(ClsMath, Directions) {
    const struct {
        R8 x, y, angle;
    } rows[] = {{1, 0, 0},  {1, 1, 0.785},    {3, 4, 0.942},   {0, 1, -0.785}, {-1, 1, 2.355},
                {-1, 0, 0}, {-1, -1, -2.355}, {0, -1, -0.785}, {1, -1, -0.785}};
    for (const auto& row : rows) {
        const auto angle = object.AngleTrigo(row.x + 100, row.y - 3, I2{100}, I2{-3});
        ASSERT_TRUE(angle.is<R4>());
        EXPECT_NEAR(*angle.as<R4>(), row.angle, 5e-5) << row.x << ' ' << row.y;
    }
}

}  // namespace
}  // namespace tovera::testing
