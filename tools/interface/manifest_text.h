#pragma once

#include <string>
#include <string_view>

namespace tovera::tools {

/// The manifest of the component for programs that use it without registration: those of 32 bits (`x86`) or
/// 64
/// (`amd64`).
std::string manifestText(std::string_view architecture);

}  // namespace tovera::tools
