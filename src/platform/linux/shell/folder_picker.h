#pragma once

#include <string>
#include <string_view>

#include "frame/values.h"

namespace tovera {

/// Lets the user choose a folder, in front of a window of the display. Its path on this system; empty when
/// the user cancels, and where there is nobody to ask.
std::string chooseFolder(std::u16string_view title, I4 owner);

}  // namespace tovera
