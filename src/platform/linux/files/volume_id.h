#pragma once

#include <string>

namespace tovera {

/// Where the kernel and its helpers tell of devices.
struct DeviceFolders {
    std::string devices = "/dev";
    std::string blockDevices = "/sys/dev/block";
};

/// The UUID of what is on the device with these numbers ("8:1"); empty for none. Where nobody has noted it,
/// it is read from the device itself, if this user may.
std::string volumeId(const DeviceFolders& folders, const std::string& device);

/// The name that the hardware of this device gives itself: maker, type, serial number, partition. Empty where
/// it isn't known.
std::string hardwareId(const DeviceFolders& folders, const std::string& device);

}  // namespace tovera
