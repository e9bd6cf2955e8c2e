#pragma once

#include <string>
#include <vector>

namespace tovera {

/// Where the kernel and its helpers tell of devices.
struct DeviceFolders {
    std::string devices = "/dev";
    std::string blockDevices = "/sys/dev/block";
    std::string opticalDrives = "/proc/sys/dev/cdrom/info";
};

/// All of a file whose size isn't known beforehand, as the kernel's aren't; empty where there is none.
std::string wholeText(const std::string& path);

/// The names of the optical drives in the order of their numbers: "sr0", "sr1".
std::vector<std::string> opticalDrives(const DeviceFolders& folders);

/// The UUID of what is on the device with these numbers ("8:1"); empty for none. Where nobody has noted it,
/// it is read from the device itself, if this user may.
std::string volumeId(const DeviceFolders& folders, const std::string& device);

/// The name that the hardware of this device gives itself: maker, type, serial number, partition. Empty where
/// it isn't known.
std::string hardwareId(const DeviceFolders& folders, const std::string& device);

}  // namespace tovera
