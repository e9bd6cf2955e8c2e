#pragma once

namespace tovera {

/// Whether this process is a program of the terminal, which shows nothing in windows.
bool isTerminalsProgram();

}  // namespace tovera
