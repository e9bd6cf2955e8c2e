#pragma once

#include "frame/services.h"
#include "platform/files.h"
#include "platform/kernel32.h"
#include "platform/user32.h"

namespace tovera {

/// What a home offers to the classes: the services, and one port for each platform library. Private objects
/// of another class get the same platform as their maker.
struct Platform {
    Services& services;
    User32& user32;
    Kernel32& kernel32;
    Files& files;
};

/// The platform of the home that this build runs in.
Platform& home();

}  // namespace tovera
