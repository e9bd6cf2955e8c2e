#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/regional.h"
#include "frame/values.h"

namespace tovera {

/// The shortest text of a number with up to 15 significant digits (7 for `R4`), with no leading blank; from
/// 1E+15 on, and below 0.0001, with an exponent of at least two digits.
std::u16string numberToText(R8 value, char16_t decimalSeparator = u'.');
std::u16string numberToText(R4 value, char16_t decimalSeparator = u'.');
std::u16string numberToText(I4 value);
/// All digits, without an exponent and without zeros at the end of the decimals.
std::u16string numberToText(const ExactNumber& value, char16_t decimalSeparator = u'.');

/// The nearest number to an exact one.
R8 nearest(const ExactNumber& value);

/// Prefix-number parsing, the same in every locale: blanks are skipped, then a sign, digits with a point and
/// an exponent are read as far as they go. It never fails: without a number it gives 0, beyond the range of
/// `R8` its largest value.
R8 prefixNumber(std::u16string_view text);

/// The number that a whole text stands for in the user's settings: blanks around it, a sign, digits in
/// groups, a decimal part, an exponent; or &H and hexadecimal digits. Nothing when the text is no such
/// number; a number beyond the range of `R8` raises error 6.
std::optional<R8> wholeNumber(std::u16string_view text, const RegionalSettings& regional);

}  // namespace tovera
