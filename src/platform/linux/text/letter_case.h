#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

// Names that are the same but for the case of their letters. The locale doesn't come into it.
namespace tovera {

/// The capital form of each ANSI byte, where the code page has one.
const std::array<char, 256>& ansiCapitals();
inline char ansiCapital(char byte) {
    return ansiCapitals()[static_cast<std::uint8_t>(byte)];
}

char16_t capital(char16_t character);
std::u16string capitals(std::u16string_view text);

}  // namespace tovera
