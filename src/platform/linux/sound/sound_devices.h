#pragma once

#include <string>

namespace tovera {

/// How many devices sound can come out of: those of the sound server that the user's programs reach, but for
/// the one that swallows all; without a server those of the kernel, by its list of them.
int soundDevices(const std::string& kernelList = "/proc/asound/pcm");

}  // namespace tovera
