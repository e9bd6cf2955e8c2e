#pragma once

#include <map>
#include <string>

namespace tovera {

/// Whether a name is its own short name: up to eight characters, and up to three behind one dot.
bool isShortName(const std::string& name);

/// The short names of a folder's entries that aren't short themselves, by the entry's name. Of entries whose
/// short names begin alike the older ones come first, so that a new one leaves the others as they were.
std::map<std::string, std::string> shortNames(const std::string& folder);

}  // namespace tovera
