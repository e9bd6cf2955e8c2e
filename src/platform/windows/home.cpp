#include "platform/platform.h"
#include "platform/windows/advapi32.h"
#include "platform/windows/files.h"
#include "platform/windows/kernel32.h"
#include "platform/windows/odbc32.h"
#include "platform/windows/services.h"
#include "platform/windows/user32.h"

namespace tovera {

Platform& home() {
    static WindowsServices services;
    static WindowsUser32 user32;
    static WindowsKernel32 kernel32;
    static WindowsFiles files;
    static WindowsAdvapi32 advapi32;
    static WindowsOdbc32 odbc32;
    static Platform platform{services, user32, kernel32, files, advapi32, odbc32};
    return platform;
}

}  // namespace tovera
