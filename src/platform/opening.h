#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Opening a file or a URL with the program that the machine has for it, of `shell32` and `user32`.
struct Opening : Port<Opening> {
    virtual I4 GetDesktopWindow() { return missingEntryPoint(); }
    /// Starts what a verb means for a file, with parameters for a program and a folder to start it in. Above
    /// 32 on success.
    virtual I4 ShellExecuteA(I4 window, const AnsiText& verb, const AnsiText& file,
                             const AnsiText& parameters, const AnsiText& folder, I4 show) {
        return missingEntryPoint(window, verb, file, parameters, folder, show);
    }
};

Opening& homeOpening();

}  // namespace tovera
