#pragma once

#include <string_view>

#include "frame/crossing.h"

// Texts of entry points: what a caller gives, and the buffers that take what he gets.
namespace tovera {

/// A given text, up to its NUL.
std::u16string textOf(const AnsiText& text);

/// As much of a text as the buffer holds with a NUL behind it; the number of its characters.
I4 fill(AnsiText& buffer, std::string_view text);

/// A whole text into a buffer that may be too small for it: then the size needed, and nothing is written.
I4 fillWhole(AnsiText& buffer, std::u16string_view text);

}  // namespace tovera
