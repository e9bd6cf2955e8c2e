#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovera {

/// What a program has written on its standard output, once it has ended.
struct ProgramOutput {
    std::string text;
    bool succeeded = false;  ///< false too where the host keeps the ends of its children to itself
};

/// Runs a program, found along the path, without a shell, with nothing to read, and with English messages.
/// Nothing where there is no such program; error 5 where the system can't start one.
std::optional<ProgramOutput> runProgram(std::vector<std::string> arguments);

}  // namespace tovera
