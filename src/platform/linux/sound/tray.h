#pragma once

#include <functional>
#include <string>

#include "frame/values.h"
#include "platform/linux/files/block_devices.h"

namespace tovera {

/// Where the optical drives of a machine are, and what is done to them.
struct OpticalDrives {
    DeviceFolders folders = {};
    std::string mountList = "/proc/self/mountinfo";
    /// Sends a request to an open drive; 0 on success, as `ioctl` has it.
    std::function<int(int drive, unsigned long request)> request = {};
};

/// Opens or closes the tray of the first optical drive, and comes back when the drive has answered. The
/// result is a code of MCI. A disc that is mounted is unmounted before the tray opens; one that is in use, or
/// that another program is writing, is left alone.
I4 moveTray(bool open, const OpticalDrives& drives = {});

}  // namespace tovera
