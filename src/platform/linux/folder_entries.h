#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovera {

/// The names in a folder, without `.` and `..`, in the order of their bytes; none for a folder that can't be
/// read.
std::vector<std::string> entriesOf(const std::string& folder);

/// The name in a folder that a caller means: the name itself, else the first that differs only in case, else
/// the one that has this short name.
std::optional<std::string> entryNamed(const std::string& folder, const std::string& name);

}  // namespace tovera
