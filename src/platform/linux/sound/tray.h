#pragma once

#include <functional>
#include <string>

#include "frame/values.h"

namespace tovera {

/// Sends a request to an open drive; 0 on success, as `ioctl` has it.
using DriveRequest = std::function<int(int drive, unsigned long request)>;

/// Opens or closes the tray of the first optical drive, and comes back when the drive has answered. The
/// result is a code of MCI. A drive that another program is writing to is left alone.
I4 moveTray(bool open, const std::string& devices = "/dev", const DriveRequest& request = {});

}  // namespace tovera
