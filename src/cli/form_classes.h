#pragma once

#include "cli/form_file.h"

namespace tovera::cli {

/// What a running form would let a program do with a text property.
enum class TextAccess { None, Read, ReadWrite };

/// For `Caption`, `Text` or `ToolTipText` of a block. A built-in class has its texts also where the file says
/// nothing of them (they are empty then), any other class those that the file holds. A text that the file
/// keeps elsewhere, in its companion, can't be reached.
TextAccess accessTo(const FormFile& file, const FormBlock& block, std::string_view property);

}  // namespace tovera::cli
