#pragma once

#include <string>

namespace tovera::tools {

/// The manifest of the component for programs that use it without registration.
std::string manifestText();

}  // namespace tovera::tools
