#pragma once

#include "frame/services.h"
#include "platform/advapi32.h"
#include "platform/files.h"
#include "platform/kernel32.h"
#include "platform/odbc32.h"
#include "platform/user32.h"

namespace tovera {

/// What a home offers to the classes: the services, and one port for each platform library. Private objects
/// of another class get the same platform as their maker.
struct Platform {
    Services& services;
    User32& user32;
    Kernel32& kernel32;
    Files& files;
    Advapi32& advapi32;
    Odbc32& odbc32;
};

/// The platform of the home that this build runs in.
Platform& home();

}  // namespace tovera
