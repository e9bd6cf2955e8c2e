#pragma once

#include <optional>
#include <string>

namespace tovera {

/// The name in a folder that a caller means: the name itself, else the first that differs only in case, else
/// the one that has this short name.
std::optional<std::string> entryNamed(const std::string& folder, const std::string& name);

}  // namespace tovera
