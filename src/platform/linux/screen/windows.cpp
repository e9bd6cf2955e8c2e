#include "platform/screen_windows.h"

namespace tovera {

ScreenWindows& homeScreenWindows() {
    static ScreenWindows port;
    return port;
}

}  // namespace tovera
