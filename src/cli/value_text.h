#pragma once

#include <string>

#include "frame/variant.h"

namespace tovera::cli {

/// A value as the program prints it, in UTF-8: texts as they are, numbers in shortest form with a point,
/// `True` or `False`, dates as 2002-03-31 or 2002-03-31 12:00:00, arrays as [1..3] "a", "b", "c".
std::string printed(const Variant& value);

/// A text in quotes, a quote within it doubled.
std::string inQuotes(std::string_view text);

}  // namespace tovera::cli
