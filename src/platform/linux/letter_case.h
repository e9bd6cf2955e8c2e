#pragma once

#include <string>
#include <string_view>

// Names that are the same but for the case of their letters. The locale doesn't come into it.
namespace tovera {

/// The capital form of an ANSI byte, where the code page has one.
char ansiCapital(char byte);

char16_t capital(char16_t character);
std::u16string capitals(std::u16string_view text);

/// Whether two ANSI texts differ in nothing but case.
bool sameName(std::string_view a, std::string_view b);

}  // namespace tovera
