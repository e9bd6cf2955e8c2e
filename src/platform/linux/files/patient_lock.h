#pragma once

#include <chrono>
#include <string>

#include "platform/linux/files/file_descriptor.h"

namespace tovera {

/// How long another program may keep a lock before that is told, and before we do without.
struct Patience {
    std::chrono::milliseconds untilTold = std::chrono::seconds(2);
    std::chrono::milliseconds untilGivenUp = std::chrono::seconds(10);
};

/// Takes the lock of an open file or folder, for as long as it is open. The processes that want it come one
/// after the other. What is told goes to standard error, with the name. 0 or the system's error number, EBUSY
/// for a lock that was given up.
int lockPatiently(const FileDescriptor& file, const std::string& name, Patience patience = {});

}  // namespace tovera
