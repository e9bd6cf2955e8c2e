#pragma once

#include <string>
#include <string_view>
#include <sys/types.h>

#include "platform/linux/files/file_descriptor.h"

struct stat;

// The steps by which a file of a folder is replaced. Results are 0 or the system's error number.
namespace tovera {

/// Only the holder of the folder's lock writes it, so that one name is enough, and what a process that was
/// ended has left goes with the next change in the folder.
inline constexpr const char* newFileName = ".tovera-new";

/// Makes a path that of the file that a chain of symbolic links leads to, which need not exist.
int followLinks(std::string& path);

/// The lock of a folder, on the folder itself; in a file of its own where the file system can't lock folders.
int lockFolder(const FileDescriptor& folder, FileDescriptor& lockFile);

/// An empty file under the name for new ones.
FileDescriptor createNew(const FileDescriptor& folder, mode_t mode);

/// A file without a name, which is gone with its descriptor; not every file system has such files.
FileDescriptor createNameless(const FileDescriptor& folder, mode_t mode);
int giveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name);

/// Permissions and owner of another file. The owner stays where the system doesn't let us give files away.
int takeOver(const FileDescriptor& file, const struct stat& old);

int writeAll(int descriptor, std::string_view bytes);

}  // namespace tovera
