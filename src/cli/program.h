#pragma once

#include <iosfwd>
#include <span>
#include <string>

namespace tovera::cli {

inline constexpr int success = 0;
inline constexpr int automationError = 1;  ///< a member failed, or its result couldn't be written
inline constexpr int badCommandLine = 2;   ///< a step can't be understood; it and those behind it didn't run

/// Where a run reads steps, prints results, and tells of failures.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

/// The program `tovera` on its arguments (without the program's own name); gives the exit status.
int runProgram(std::span<const std::string> arguments, Console console);

}  // namespace tovera::cli
