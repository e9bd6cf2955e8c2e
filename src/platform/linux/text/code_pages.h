#pragma once

#include <string>
#include <string_view>

// The code pages of this home: ANSI is 1252, its five unassigned bytes standing for the C1 controls of the
// same number; OEM is 850.
namespace tovera {

/// What stands for a character that the ANSI code page lacks.
inline constexpr char defaultAnsiCharacter = '?';

char ansiByte(char16_t character);
char16_t ansiCharacter(char byte);

std::string toAnsi1252(std::u16string_view text);
std::u16string fromAnsi1252(std::string_view bytes);

/// The ANSI byte for an OEM byte; line-drawing characters become the nearest sign, as Windows has it.
char oemToAnsi(char byte);

}  // namespace tovera
