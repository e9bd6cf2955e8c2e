#include "platform/linux/files.h"
#include "platform/linux/kernel32.h"
#include "platform/linux/services.h"
#include "platform/linux/user32.h"
#include "platform/platform.h"

namespace tovera {

Platform& home() {
    static LinuxServices services;
    static LinuxUser32 user32;
    static LinuxKernel32 kernel32;
    static LinuxFiles files;
    static Advapi32 advapi32;
    static Odbc32 odbc32;
    static Platform platform{services, user32, kernel32, files, advapi32, odbc32};
    return platform;
}

}  // namespace tovera
