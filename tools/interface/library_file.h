#pragma once

#include <string>

namespace tovera::tools {

/// Finishes a compiled type library with what its compiler can't express: accented names of parameters, line
/// feeds in help strings, the help string of the records, and the places of slots behind an unpublished one.
std::string finishedLibrary(std::string file);

}  // namespace tovera::tools
