#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace tovera::cli {

inline constexpr int success = 0;
inline constexpr int automationError = 1;  ///< a member failed
inline constexpr int badCommandLine = 2;   ///< the command line can't be understood; nothing was called

/// The program `tovera` on its arguments (without the program's own name); gives the exit status.
int runProgram(std::span<const std::string> arguments, std::ostream& out, std::ostream& err);

}  // namespace tovera::cli
