#include "geometry/cls_math.h"

#include <cmath>

#include "frame/arithmetic.h"
#include "frame/checked.h"
#include "geometry/turns.h"

namespace tovera {
namespace {

/// Searches the grid of 201 angles in rising order for the first whose band, half a step to either side,
/// holds x by this function. No band holds a text, which ranks above every number, nor Null.
template <class Function>
R4 searchGrid(const Variant& argument, const Conversions& convert, Function function) {
    const auto x = dereferenced(argument);
    if (x.is<Bstr>() || x.is<Null>()) return 0;
    const auto wanted = convert.to<R8>(x);
    constexpr R8 H = Pi / 200;
    // NOLINTNEXTLINE(clang-analyzer-security.FloatLoopCounter): the grid is the sum of its steps.
    for (R8 i = 0; i <= 2 * Pi; i += Pi / 100) {
        R8 c1 = function(i - H);
        R8 c2 = function(i + H);
        if (c1 > c2) std::swap(c1, c2);
        if (wanted >= c1 && wanted <= c2) return static_cast<R4>(i);
    }
    return 0;
}

/// The type of the caller's variable, in which each step of a reduction is stored; a `VARIANT` takes `R8`.
VariableType typeOfVariable(Variant& variable) {
    const auto* const reference = endOfReferences(variable).as<Reference>();
    if (!reference) return VariableType::R8;
    return std::visit(
        []<class T>(T*) {
            if constexpr (std::is_integral_v<T>) return VariableType::Integer;
            if constexpr (std::is_same_v<T, R4>) return VariableType::R4;
            if constexpr (std::is_same_v<T, R8> || std::is_same_v<T, Date>) return VariableType::R8;
            return VariableType::Text;
        },
        *reference);
}

R8 distance(R8 dx, R8 dy) {
    return std::sqrt(checkedFloat(dx * dx + dy * dy));
}

}  // namespace

R4 Cls_Math::MesurePrincipale(Variant& Angle) {
    const Conversions convert(platform_.services);
    const auto type = typeOfVariable(Angle);
    const auto current = [&] { return convert.to<R8>(Angle); };
    const auto next = [&](R8 angle) {
        checkedFloat(angle);
        return type == VariableType::R8 ? withoutTurns(angle) : lessTurns(angle, type);
    };
    while (current() > Pi) convert.store(&Angle, next(current()));
    while (current() < -Pi) convert.store(&Angle, -next(-current()));
    return convert.to<R4>(Angle);
}

Variant Cls_Math::Hypothenuse(const Variant& X1, const Variant& Y1, const Variant& X2, const Variant& Y2) {
    const Arithmetic arithmetic(platform_.services);
    const auto dx = arithmetic.convert().to<R8>(arithmetic.subtract(X1, X2));
    const auto dy = arithmetic.convert().to<R8>(arithmetic.subtract(Y1, Y2));
    return distance(dx, dy);
}

R4 Cls_Math::InverseCosinus(const Variant& x) {
    return searchGrid(x, Conversions(platform_.services), [](R8 angle) { return std::cos(angle); });
}

R4 Cls_Math::InverseSinus(const Variant& x) {
    return searchGrid(x, Conversions(platform_.services), [](R8 angle) { return std::sin(angle); });
}

Variant Cls_Math::AngleTrigo(const Variant& x, const Variant& y, const Variant& cx, const Variant& cy) {
    const Arithmetic arithmetic(platform_.services);
    const auto dx = arithmetic.convert().to<R8>(arithmetic.subtract(x, cx));
    const auto dy = arithmetic.convert().to<R8>(arithmetic.subtract(y, cy));
    const R8 r = distance(dx, dy);
    const R8 cs = checkedDivide(dx, r);
    const R8 sn = checkedDivide(dy, r);

    const auto principal = [this](Variant angle) { return MesurePrincipale(angle); };
    const R4 A1 = principal(InverseCosinus(cs));
    const R4 A2 = principal(2 * Pi - A1);
    const R4 B1 = principal(InverseSinus(sn));
    const R4 B2 = principal(Pi - B1);

    const R4 D1 = std::fabs(A1 - B1);
    const R4 D2 = std::fabs(A1 - B2);
    const R4 D3 = std::fabs(A2 - B1);
    const R4 D4 = std::fabs(A2 - B2);
    const auto noneBelow = [&](R4 d) { return d <= D1 && d <= D2 && d <= D3 && d <= D4; };
    R4 result = 0;
    if (noneBelow(D1)) result = (A1 + B1) / 2;
    if (noneBelow(D2)) result = (A1 + B2) / 2;
    if (noneBelow(D3)) result = (A2 + B1) / 2;
    if (noneBelow(D4)) result = (A2 + B2) / 2;
    return result;
}

}  // namespace tovera
