#include "frame/arithmetic.h"

#include <algorithm>

#include "frame/checked.h"

namespace tovera {
namespace {

/// Operand types in the order in which a result is widened.
enum class Rank { UI1, I2, I4, R4, R8 };

Rank rankOf(const Variant& value) {
    if (value.is<UI1>()) return Rank::UI1;
    if (value.is<I2>() || value.is<Empty>() || value.is<VariantBool>()) return Rank::I2;
    if (value.is<I4>()) return Rank::I4;
    return value.is<R4>() ? Rank::R4 : Rank::R8;
}

/// An `R4` holds no `I4` exactly, so together they make an `R8`.
Rank commonRank(Rank a, Rank b) {
    const bool inexact = (a == Rank::R4 && b == Rank::I4) || (a == Rank::I4 && b == Rank::R4);
    return inexact ? Rank::R8 : std::max(a, b);
}

/// An integer result in the operands' type, or in the next wider one that holds it.
Variant widened(std::int64_t value, Rank rank) {
    if (rank == Rank::UI1 && std::in_range<UI1>(value)) return static_cast<UI1>(value);
    if (rank <= Rank::I2 && std::in_range<I2>(value)) return static_cast<I2>(value);
    if (std::in_range<I4>(value)) return static_cast<I4>(value);
    return static_cast<R8>(value);
}

}  // namespace

template <class Operation>
Variant Arithmetic::combine(const Variant& a, const Variant& b, Operation operation) const {
    if (a.is<Reference>() || b.is<Reference>()) return combine(dereferenced(a), dereferenced(b), operation);
    if (a.is<Null>() || b.is<Null>()) return Null{};
    const auto rank = commonRank(rankOf(a), rankOf(b));
    if (rank <= Rank::I4) {
        return widened(operation(std::int64_t{convert_.to<I4>(a)}, std::int64_t{convert_.to<I4>(b)}), rank);
    }
    const R8 result = checkedFloat(operation(convert_.to<R8>(a), convert_.to<R8>(b)));
    if (rank == Rank::R4) return roundToR4(result);
    return result;
}

Variant Arithmetic::add(const Variant& a, const Variant& b) const {
    return combine(a, b, [](auto x, auto y) { return x + y; });
}

Variant Arithmetic::subtract(const Variant& a, const Variant& b) const {
    return combine(a, b, [](auto x, auto y) { return x - y; });
}

Variant Arithmetic::multiply(const Variant& a, const Variant& b) const {
    return combine(a, b, [](auto x, auto y) { return x * y; });
}

Variant Arithmetic::modulo(const Variant& dividend, const Variant& divisor) const {
    if (dividend.is<Reference>() || divisor.is<Reference>()) {
        return modulo(dereferenced(dividend), dereferenced(divisor));
    }
    if (dividend.is<Null>() || divisor.is<Null>()) return Null{};
    const std::int64_t n = convert_.to<I4>(dividend);
    const std::int64_t d = convert_.to<I4>(divisor);
    if (d == 0) raise(ErrorNumber::DivisionByZero);
    return static_cast<I4>(n % d);
}

std::partial_ordering Arithmetic::compareToNumber(const Variant& value, R8 number) const {
    if (value.is<Reference>()) return compareToNumber(dereferenced(value), number);
    if (value.is<Null>()) return std::partial_ordering::unordered;
    return convert_.to<R8>(value) <=> number;
}

std::partial_ordering Arithmetic::compare(const Variant& a, const Variant& b) const {
    if (a.is<Reference>() || b.is<Reference>()) return compare(dereferenced(a), dereferenced(b));
    if (a.is<Null>() || b.is<Null>()) return std::partial_ordering::unordered;
    const bool textA = a.is<Bstr>() || (a.is<Empty>() && b.is<Bstr>());
    const bool textB = b.is<Bstr>() || (b.is<Empty>() && a.is<Bstr>());
    if (textA && textB) return convert_.to<Bstr>(a).view() <=> convert_.to<Bstr>(b).view();
    if (textA || textB) return textA ? std::partial_ordering::greater : std::partial_ordering::less;
    return convert_.to<R8>(a) <=> convert_.to<R8>(b);
}

}  // namespace tovera
