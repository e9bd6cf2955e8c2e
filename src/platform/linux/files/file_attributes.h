#pragma once

#include <sys/stat.h>

#include "platform/linux/files/file_descriptor.h"

namespace tovera {

/// Gives a new file the owner, the group, the permissions, the access list and the further attributes of the
/// one that it is to replace. False when it can't have all of them.
bool takeAttributes(const FileDescriptor& fresh, const FileDescriptor& old, const struct stat& oldFacts);

}  // namespace tovera
