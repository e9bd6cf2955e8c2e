#pragma once

#include <string_view>

namespace tovera::cli {

/// The capital of a letter in the code page of form files, where the page has one.
char capitalByte(char letter);

/// Names of form files are compared without regard to case.
bool sameName(std::string_view a, std::string_view b);

}  // namespace tovera::cli
