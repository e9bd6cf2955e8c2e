#include "platform/linux/advapi32.h"
#include "platform/linux/data_folder.h"
#include "platform/linux/files.h"
#include "platform/linux/kernel32.h"
#include "platform/linux/odbc32.h"
#include "platform/linux/services.h"
#include "platform/linux/user32.h"
#include "platform/platform.h"

namespace tovera {

Platform& home() {
    static LinuxServices services;
    static LinuxUser32 user32;
    static LinuxKernel32 kernel32;
    static LinuxFiles files;
    static LinuxAdvapi32 advapi32(dataFolder() + "/registry");
    static LinuxOdbc32 odbc32;
    static Platform platform{services, user32, kernel32, files, advapi32, odbc32};
    return platform;
}

}  // namespace tovera
