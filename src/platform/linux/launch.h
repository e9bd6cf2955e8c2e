#pragma once

#include <string_view>

#include "frame/values.h"

namespace tovera {

/// Starts the program that the first word of a command line names, searched along the path, with the other
/// words as its arguments; words that hold blanks stand in double quotes. Returns the process number.
/// Raises error 53 for a program that isn't found, 5 for one that can't be started.
R8 launchProgram(std::string_view commandLine);

}  // namespace tovera
