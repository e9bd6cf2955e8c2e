#pragma once

#include "frame/values.h"
#include "platform/linux/shell/command_line.h"

namespace tovera {

/// Starts a program as a process of its own, in a group of its own, that nobody has to wait for: without
/// the host's terminal, files and signals, its standard streams on nothing. Returns the process number, which
/// isn't that of a child. Error 53 or 5 where the system refuses.
R8 startProcess(const Command& command);

}  // namespace tovera
