#pragma once

#include <span>
#include <string>

#include "cli/console.h"

namespace tovera::cli {

/// The program `tovera` on its arguments (without the program's own name); gives the exit status.
int runProgram(std::span<const std::string> arguments, Console console);

}  // namespace tovera::cli
