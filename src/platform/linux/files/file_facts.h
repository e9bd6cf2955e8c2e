#pragma once

#include <optional>
#include <string>
#include <sys/stat.h>

namespace tovera {

/// What the system knows of a path; nothing, with `errno` set, where it leads to nothing. A symbolic link is
/// told of itself.
inline std::optional<struct stat> factsOf(const std::string& path) {
    struct stat facts {};
    if (lstat(path.c_str(), &facts) != 0) return std::nullopt;
    return facts;
}

/// The same of the file that a symbolic link leads to.
inline std::optional<struct stat> factsOfTarget(const std::string& path) {
    struct stat facts {};
    if (stat(path.c_str(), &facts) != 0) return std::nullopt;
    return facts;
}

}  // namespace tovera
