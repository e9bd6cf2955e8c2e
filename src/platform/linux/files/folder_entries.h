#pragma once

#include <string>
#include <vector>

namespace tovera {

/// The names in a folder, without `.` and `..`, in the order of their bytes; none for a folder that can't be
/// read.
std::vector<std::string> entriesOf(const std::string& folder);

}  // namespace tovera
