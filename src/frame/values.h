#pragma once

#include <compare>
#include <cstdint>

// The number and truth types of Automation, under Automation's own names.
namespace tovera {

using UI1 = std::uint8_t;
using I2 = std::int16_t;
using I4 = std::int32_t;
using R4 = float;
using R8 = double;

/// Truth value of 16 bits. True is -1 and False 0, but a caller's variable may hold any other bits:
/// every nonzero value is true in a test, and only -1 is exactly True.
struct VariantBool {
    I2 raw = 0;

    constexpr VariantBool() = default;
    constexpr explicit VariantBool(bool truth) : raw(truth ? I2{-1} : I2{0}) {}
    static constexpr VariantBool ofBits(I2 bits) {
        VariantBool value;
        value.raw = bits;
        return value;
    }

    constexpr explicit operator bool() const { return raw != 0; }
    constexpr bool isExactlyTrue() const { return raw == -1; }
    friend constexpr bool operator==(VariantBool, VariantBool) = default;
};

inline constexpr VariantBool True{true};
inline constexpr VariantBool False{false};

/// A moment: the whole part counts days from 30 December 1899, the fraction (always taken as positive)
/// is the part of the day that has passed.
struct Date {
    R8 days = 0;
    friend constexpr auto operator<=>(Date, Date) = default;
};

/// A number of up to 96 bits, the last digits of which are decimals: what a 64-bit integer, a Currency or a
/// Decimal of a caller holds. It calculates as `R8`, and its text has all of its digits.
struct ExactNumber {
    std::uint64_t low = 0;
    std::uint32_t high = 0;
    std::uint8_t decimals = 0;
    bool isNegative = false;
    friend constexpr bool operator==(const ExactNumber&, const ExactNumber&) = default;
};

/// An Automation status code carried as a value, as an omitted argument is.
struct ErrorCode {
    I4 code = 0;
    friend constexpr bool operator==(ErrorCode, ErrorCode) = default;
};

}  // namespace tovera
