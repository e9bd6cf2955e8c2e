#pragma once

#include "frame/bstr.h"

namespace tovera {

/// The capital of a letter of the Latin, Greek and Cyrillic alphabets; any other character stays.
char16_t upperCase(char16_t character);

/// A text in capitals, of the same length, the same in every locale.
Bstr upperCase(std::u16string_view text);

}  // namespace tovera
