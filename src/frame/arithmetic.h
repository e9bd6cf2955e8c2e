#pragma once

#include <compare>

#include "frame/conversions.h"

namespace tovera {

/// Arithmetic and comparison on `VARIANT`s. Empty is 0, text goes through the user's number format (error 13
/// when it is no number), a Null operand gives Null. Integer results that leave their range are widened.
class Arithmetic {
  public:
    explicit Arithmetic(Services& services) : convert_(services) {}

    Variant add(const Variant& a, const Variant& b) const;
    Variant subtract(const Variant& a, const Variant& b) const;
    Variant multiply(const Variant& a, const Variant& b) const;
    /// Both operands are rounded to integers first; the result takes the sign of the dividend. Zero as
    /// divisor raises error 11.
    Variant modulo(const Variant& dividend, const Variant& divisor) const;

    /// Against a number of fixed type: text is converted. Unordered when the value is Null.
    std::partial_ordering compareToNumber(const Variant& value, R8 number) const;
    /// Of two `VARIANT`s: numbers as numbers, texts as texts code unit by code unit, a number below any
    /// text, Empty as 0 or as the empty text. Unordered when either is Null.
    std::partial_ordering compare(const Variant& a, const Variant& b) const;

    const Conversions& convert() const { return convert_; }

  private:
    template <class Operation>
    Variant combine(const Variant& a, const Variant& b, Operation operation) const;

    Conversions convert_;
};

}  // namespace tovera
