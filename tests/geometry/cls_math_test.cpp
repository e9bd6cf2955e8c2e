#include <cmath>
#include <random>

#include "geometry/class_table.h"
#include "support/named_calls.h"

namespace tovera::testing {
namespace {

constexpr R8 pi = 3.14;
constexpr R8 infinity = std::numeric_limits<R8>::infinity();

/// Turn after turn, as the reduction is defined.
R8 reducedStepwise(R8 angle) {
    while (angle > pi) angle -= 2 * pi;
    while (angle < -pi) angle += 2 * pi;
    return angle;
}

class ClsMath : public ::testing::Test {
  protected:
    void expectReducedAsStepwise(R8 size) {
        for (const R8 angle : {size, -size}) {
            Variant variable(angle);
            const R4 result = object.MesurePrincipale(variable);
            const R8 expected = reducedStepwise(angle);
            ASSERT_EQ(variable, Variant(expected)) << ::testing::PrintToString(angle);
            ASSERT_EQ(result, static_cast<R4>(expected));
        }
    }

    TestPlatform test;
    Cls_Math object{test.platform};
};

TEST_F(ClsMath, AnglesAreReducedTurnByTurn) {
    std::mt19937_64 random(314);
    std::uniform_real_distribution<R8> mantissa(1, 2);
    std::vector<R8> edges;
    for (int exponent = 0; exponent <= 22; ++exponent) {
        for (int i = 0; i < (exponent < 18 ? 100 : 3); ++i)
            expectReducedAsStepwise(std::ldexp(mantissa(random), exponent));
        for (const R8 beyond : {0.0, 2 * pi}) edges.push_back(std::ldexp(1.0, exponent) + beyond);
    }
    for (int turns = 0; turns < 3000; ++turns) edges.push_back(pi + turns * 2 * pi);
    for (const R8 edge : edges)
        for (const R8 beside : {edge, std::nextafter(edge, 0), std::nextafter(edge, 1e9)})
            expectReducedAsStepwise(beside);
    for (R8 size = 1e9; size < 1e300; size *= 7) {  // where the steps would take too long, or not end at all
        Variant angle(size);
        const R4 result = object.MesurePrincipale(angle);
        ASSERT_LE(std::fabs(*angle.as<R8>()), pi) << size;
        ASSERT_EQ(result, static_cast<R4>(*angle.as<R8>()));
    }
}

TEST_F(ClsMath, TheReducedAngleIsInTheCallersVariable) {
    const struct {
        Variant before, after;
        R4 result;
        I4 error = 0;
    } rows[] = {
        // clang-format off
        {R8{3.14}, R8{3.14}, 3.14F}, {R8{-3.14}, R8{-3.14}, -3.14F}, {R8{-3.15}, R8{-3.15 + 6.28}, 3.13F},
        {u"10", R8{10 - 6.28 - 6.28}, -2.56F}, {u" 3 ", u" 3 ", 3}, {Variant{}, Variant{}, 0},
        {R4{3.5F}, R8{3.5 - 6.28}, -2.78F},
        // Remainders of a whole turn, from outside: half a turn would leave others.
        {R8{1e17}, R8{0.5599688293624991}, 0.55996883F}, {R8{-1e20}, R8{-1.048829362499121}, static_cast<R4>(-1.048829362499121)},
        {R8{1e300}, R8{-2.275512960901941}, -2.2755129F}, {u"dix", u"dix", 0, 13}, {Null{}, Null{}, 0, 94},
        {infinity, infinity, 0, 6}, {-infinity, -infinity, 0, 6},
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
}

/// Turn after turn in a variable of a type that rounds each of them.
template <class T>
T reducedIn(T angle) {
    const auto rounded = [](R8 value) {
        return static_cast<T>(std::is_integral_v<T> ? std::nearbyint(value) : value);
    };
    while (angle > pi) angle = rounded(angle - 2 * pi);
    while (angle < -pi) angle = rounded(angle + 2 * pi);
    return angle;
}

TEST_F(ClsMath, VariablesOfOtherTypesRoundEachTurn) {
    const auto reduce = [&]<class T>(T& variable) {
        return *callMember(objectOn<Cls_Math>(test.platform), u"MesurePrincipale", Reference{&variable})
                    .template as<R4>();
    };
    const auto expectStepwise = [&]<class T>(T angle) {
        T variable = angle;
        const R4 result = reduce(variable);
        ASSERT_EQ(variable, reducedIn(angle)) << ::testing::PrintToString(angle);
        ASSERT_EQ(result, static_cast<R4>(variable));
    };
    R4 hundred = 100;
    I2 ten = 10;
    EXPECT_EQ(reduce(hundred), -0.4799898F);
    EXPECT_EQ(hundred, -0.4799898F);
    EXPECT_EQ(reduce(ten), -2);
    for (const auto& [angle, remainder] :
         {std::pair(1e10F, -0.6400006F), {1e20F, 2.64875F}, {-3e37F, 2.2141392F}}) {
        R4 variable = angle;  // with remainders of a whole turn, from outside
        EXPECT_FLOAT_EQ(reduce(variable), remainder);
    }
    std::mt19937 random(314);
    std::uniform_real_distribution<R4> mantissa(1, 2);
    for (int exponent = 0; exponent <= 24; ++exponent) {
        for (int i = 0; i < (exponent < 16 ? 100 : 2); ++i) {
            expectStepwise(std::ldexp(mantissa(random), exponent));
            expectStepwise(-std::ldexp(mantissa(random), exponent));
        }
    }
    for (I2 angle = -999; angle < 1000; ++angle) expectStepwise(angle);
    for (I4 angle : {100'000'000, -100'000'000, 99'999'999}) expectStepwise(angle);
    for (R4 angle = 1e8F; angle < 1e37F; angle *= 7) {  // where the steps would not end at all
        R4 variable = angle;
        reduce(variable);
        ASSERT_LE(std::fabs(variable), pi) << angle;
    }
    I4 largest = std::numeric_limits<I4>::max();
    EXPECT_EQ(reduce(largest), 1);
    UI1 noRoom = 10;
    EXPECT_EQ(errorOf([&] { reduce(noRoom); }), 6);
    EXPECT_EQ(noRoom, 4);
    Bstr text = u"100", huge = u"1E+300";
    EXPECT_EQ(reduce(text), -0.48F);
    EXPECT_EQ(text, u"-0.48");
    EXPECT_LE(std::fabs(reduce(huge)), 3.14F);
}

/// The first grid angle whose band holds x, searched as it is defined.
R4 searched(R8 x, R8 (*function)(R8)) {
    for (R8 i = 0; i <= 2 * pi; i += pi / 100) {
        const auto [low, high] = std::minmax({function(i - pi / 200), function(i + pi / 200)});
        if (x >= low && x <= high) return static_cast<R4>(i);
    }
    return 0;
}

TEST_F(ClsMath, InverseFunctionsGiveTheGridOfTheSearch) {
    std::vector<R8> values{-1.0, -0.0, 0.0, 1.0, 1e300, -1e300, std::nan("")};
    for (R8 i = 0; i <= 2 * pi; i += pi / 100)
        for (const R8 side : {i - pi / 200, i + pi / 200})
            for (const R8 edge : {std::cos(side), std::sin(side)})
                for (const R8 x : {edge, std::nextafter(edge, -2), std::nextafter(edge, 2)})
                    values.push_back(x);
    std::mt19937_64 random(201);
    std::uniform_real_distribution<R8> anywhere(-1.05, 1.05);
    for (int i = 0; i < 3000; ++i) values.push_back(anywhere(random));
    for (const R8 x : values) {
        ASSERT_EQ(object.InverseCosinus(x), searched(x, &std::cos)) << ::testing::PrintToString(x);
        ASSERT_EQ(object.InverseSinus(x), searched(x, &std::sin)) << ::testing::PrintToString(x);
    }
}

TEST_F(ClsMath, ByName) {
    const std::vector<NamedCall> calls{
        // clang-format off
        gives(R4{-2.56F}, u"MesurePrincipale", I2{10}),
        gives(R8{5}, u"Hypothenuse", I2{0}, I2{0}, u"3", I4{4}),
        gives(R8{65535}, u"Hypothenuse", I2{32767}, I2{0}, I2{-32768}, Variant{}),
        fails(6, u"Hypothenuse", R8{1e200}, I2{0}, I2{0}, I2{0}),
        fails(94, u"Hypothenuse", Null{}, I2{0}, I2{0}, I2{0}),
        gives(R4{2.1038F}, u"InverseCosinus", R8{-0.5}), gives(R4{6.28F}, u"InverseCosinus", R8{0.9999}),
        gives(R4{0}, u"InverseCosinus", u"0.5"), gives(R4{0}, u"InverseCosinus", Null{}),
        gives(R4{1.57F}, u"InverseCosinus", Variant{}), gives(R4{3.6738F}, u"InverseSinus", R8{-0.5}),
        fails(13, u"InverseSinus", ObjectRef{}), fails(6, u"AngleTrigo", I2{5}, I2{7}, I2{5}, I2{7}),
        fails(13, u"AngleTrigo", u"x", I2{7}, I2{5}, I2{7}),
        // clang-format on
    };
    expectCallsOfEveryMethod<Cls_Math>(test.platform, calls);
}

TEST_F(ClsMath, Directions) {
    const std::tuple<R8, R8, R8> rows[] = {{1, 0, 0},        {1, 1, 0.785},   {3, 4, 0.942},
                                           {0, 1, -0.785},   {-1, 1, 2.355},  {-1, 0, 0},
                                           {-1, -1, -2.355}, {0, -1, -0.785}, {1, -1, -0.785}};
    for (const auto& [x, y, expected] : rows) {
        const auto angle = object.AngleTrigo(x + 100, y - 3, I2{100}, I2{-3});
        ASSERT_TRUE(angle.is<R4>());
        EXPECT_NEAR(*angle.as<R4>(), expected, 5e-5) << x << ' ' << y;
    }
}

}  // namespace
}  // namespace tovera::testing
