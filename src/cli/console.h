#pragma once

#include <iosfwd>

namespace tovera::cli {

// What a run ends with.
inline constexpr int success = 0;
inline constexpr int automationError = 1;  ///< a member failed, or its result couldn't be written
inline constexpr int badCommandLine = 2;   ///< a step can't be understood; it and those behind it didn't run

/// Where a run reads steps, prints results, and tells of failures.
struct Console {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

}  // namespace tovera::cli
