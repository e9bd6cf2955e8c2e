#pragma once

#include <string>

namespace tovera {

/// The desktop entry that was made beside a link of Windows; empty where there is none, or only another one.
std::string markedTwinOf(const std::string& link);

}  // namespace tovera
