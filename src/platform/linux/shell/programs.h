#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tovera {

/// Where a program is found.
struct FoundProgram {
    std::string path;  ///< of this system, with a slash in it
    bool mayRun = true;
};

/// The program of a name, looked for along the path, or at its own place where the name is a path. One that
/// may be run goes before one that may not. Nothing when there is none.
std::optional<FoundProgram> findProgram(const std::string& name);

/// Whether there is such a program that may be run.
bool hasProgram(const std::string& name);

/// A word of a command as a path of this system, when it begins with a drive; else the word itself.
std::string asHostPath(std::string_view word);

}  // namespace tovera
