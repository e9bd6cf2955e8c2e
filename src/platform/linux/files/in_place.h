#pragma once

#include <string_view>
#include <sys/stat.h>

#include "platform/linux/files/file_descriptor.h"

// Files that are written in place, since they can't be replaced as they are. The old bytes lie in the user's
// data folder meanwhile, so that a writer that is ended leaves something to go back to.
namespace tovera {

/// Writes a file, open for writing, whose bytes are known. 0 or errno; when it fails the file is as it was.
int writeInPlace(const FileDescriptor& file, const struct stat& facts, const std::string& path,
                 std::string_view oldBytes, std::string_view newBytes);

/// Goes back to the bytes that an ended writer of this user has left; they are told of on standard error. A
/// file that was changed later stays, and the bytes are kept. 0 also when there are none.
int restoreUnfinished(const FileDescriptor& folder, const char* name, const struct stat& facts,
                      const std::string& path);

}  // namespace tovera
