#pragma once

#include <string>

#include "frame/values.h"

namespace tovera {

struct ScreenSize {
    I4 width = 0;  ///< pixels
    I4 height = 0;
    friend bool operator==(const ScreenSize&, const ScreenSize&) = default;
};

/// The size of the display's primary monitor; without a display that of the first connected one that the
/// system knows; else 0.
ScreenSize screenSize();

/// The size of the first connected monitor, from this folder of the system's graphics devices.
ScreenSize connectedMonitor(const std::string& graphicsDevices = "/sys/class/drm");

}  // namespace tovera
