#pragma once

#include <string>
#include <vector>

#include "frame/values.h"
#include "platform/linux/files/block_devices.h"

// The drives of this system by letters. `C:` and `Z:` are folders; `A:` and `B:` floppy drives; from `D:` on
// come optical drives, then what is mounted for users and from the network. A letter once given stays with
// its volume, also while that is absent: a kept path never reaches another volume.
namespace tovera {

/// Where the facts of the machine stand, and where the given letters are kept.
struct DriveSources : DeviceFolders {
    std::string mountList = "/proc/self/mountinfo";
    std::string letters;  ///< a file of the user; its folder need not exist yet
};

struct Drive {
    char letter = 0;     ///< a capital
    I4 type = 0;         ///< one of the drive types
    std::string folder;  ///< without a slash at its end; empty for a drive with nothing in it
    std::string device;  ///< the numbers of what it lies on ("8:1"); empty where that isn't known by itself
};

/// The sources of this machine.
DriveSources machineDrives();

/// The drives beside `C:` and `Z:`.
std::vector<Drive> otherDrives(const DriveSources& sources = machineDrives());

}  // namespace tovera
