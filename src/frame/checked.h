#pragma once

#include <cmath>
#include <concepts>
#include <limits>
#include <utility>

#include "frame/error.h"
#include "frame/values.h"

// Integer arithmetic that raises error 6 instead of leaving its range, and float arithmetic that is checked
// at the end of each expression.
namespace tovera {

/// The same number in another integer type; out of range raises error 6.
template <std::integral To, std::integral From>
constexpr To narrow(From value) {
    if (!std::in_range<To>(value)) raise(ErrorNumber::Overflow);
    return static_cast<To>(value);
}

template <std::integral T>
constexpr T checkedAdd(T a, T b) {
    T sum{};
    if (__builtin_add_overflow(a, b, &sum)) raise(ErrorNumber::Overflow);
    return sum;
}

template <std::integral T>
constexpr T checkedSubtract(T a, T b) {
    T difference{};
    if (__builtin_sub_overflow(a, b, &difference)) raise(ErrorNumber::Overflow);
    return difference;
}

template <std::integral T>
constexpr T checkedMultiply(T a, T b) {
    T product{};
    if (__builtin_mul_overflow(a, b, &product)) raise(ErrorNumber::Overflow);
    return product;
}

/// The value of a float expression; an overflow and an invalid operation raise error 6.
template <std::floating_point T>
T checkedFloat(T value) {
    if (!std::isfinite(value)) raise(ErrorNumber::Overflow);
    return value;
}

/// A quotient: a nonzero value divided by zero raises error 11, zero by zero error 6.
inline R8 checkedDivide(R8 dividend, R8 divisor) {
    if (divisor == 0 && dividend != 0) raise(ErrorNumber::DivisionByZero);
    return checkedFloat(dividend / divisor);
}

/// The nearest integer of a float, a tie going to the even one; out of range raises error 6.
template <std::integral To>
To roundToInteger(R8 value) {
    constexpr R8 beyondEveryType = 1e18;
    if (!(std::fabs(value) < beyondEveryType)) raise(ErrorNumber::Overflow);
    return narrow<To>(std::llrint(value));
}

/// The same number as `R4`; one beyond its range raises error 6.
inline R4 roundToR4(R8 value) {
    return checkedFloat(static_cast<R4>(value));
}

}  // namespace tovera
