#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// What `kernel32` knows of the system. A buffer's length is the size that goes with it.
struct SystemFacts : Port<SystemFacts> {
    /// A folder without a backslash at its end. Returns the length without the NUL; the size needed, with the
    /// buffer left as it was, when that is too small; 0 on failure.
    virtual I4 GetSystemDirectoryA(AnsiText& buffer) { return missingEntryPoint(buffer); }
    virtual I4 GetWindowsDirectoryA(AnsiText& buffer) { return missingEntryPoint(buffer); }
};

SystemFacts& homeSystemFacts();

}  // namespace tovera
