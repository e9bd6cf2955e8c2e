#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// The system's version. The classes read its major, minor and platform number.
struct OsVersionInfo {
    I4 dwOSVersionInfoSize = 148;  ///< in bytes, of the platform's record
    I4 dwMajorVersion = 0;
    I4 dwMinorVersion = 0;
    I4 dwBuildNumber = 0;
    I4 dwPlatformId = 0;
    std::string szCSDVersion;
};

/// What `kernel32` knows of the system. A buffer's length is the size that goes with it.
struct SystemFacts : Port<SystemFacts> {
    /// A folder without a backslash at its end. Returns the length without the NUL; the size needed, with the
    /// buffer left as it was, when that is too small; 0 on failure.
    virtual I4 GetSystemDirectoryA(AnsiText& buffer) { return missingEntryPoint(buffer); }
    virtual I4 GetWindowsDirectoryA(AnsiText& buffer) { return missingEntryPoint(buffer); }

    /// 1 on success.
    virtual I4 GetVersionExA(OsVersionInfo& version) { return missingEntryPoint(version); }
    /// The file that a module was loaded from. Returns the length without the NUL.
    virtual I4 GetModuleFileNameA(I4 module, AnsiText& buffer) { return missingEntryPoint(module, buffer); }
};

SystemFacts& homeSystemFacts();

}  // namespace tovera
