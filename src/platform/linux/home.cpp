#include "platform/linux/services.h"
#include "platform/linux/user32.h"
#include "platform/platform.h"

namespace tovera {

Platform& home() {
    static LinuxServices services;
    static LinuxUser32 user32;
    static Platform platform{services, user32};
    return platform;
}

}  // namespace tovera
