#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Types of a drive.
namespace driveTypes {
inline constexpr I4 unknown = 0;
inline constexpr I4 noSuchRoot = 1;
inline constexpr I4 removable = 2;
inline constexpr I4 fixed = 3;
inline constexpr I4 remote = 4;
inline constexpr I4 cdRom = 5;
inline constexpr I4 ramDisk = 6;
}  // namespace driveTypes

/// Drives by their root path (`C:\`), of `kernel32`.
struct Drives : Port<Drives> {
    /// One of the drive types.
    virtual I4 GetDriveTypeA(const AnsiText& rootPath) { return missingEntryPoint(rootPath); }

    /// The facts of a volume, without its name and that of its file system. Nonzero on success; on failure
    /// the numbers stay as they are.
    virtual I4 GetVolumeInformationA(const AnsiText& rootPath, I4& serialNumber, I4& longestName, I4& flags) {
        return missingEntryPoint(rootPath, serialNumber, longestName, flags);
    }
};

Drives& homeDrives();

}  // namespace tovera
