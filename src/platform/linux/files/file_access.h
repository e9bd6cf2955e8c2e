#pragma once

#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>

#include "platform/linux/files/file_bytes.h"
#include "platform/linux/files/file_descriptor.h"

// What the reading, the changing and the making of whole files have in common. Results are 0 or errno.
namespace tovera {

/// Not blocking, since a pipe would wait for a writer.
inline constexpr int readFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;
inline constexpr int writeFlags = O_WRONLY | O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;

int factsOfRegular(const FileDescriptor& file, struct stat& facts);

/// All bytes of a file of this size, whatever has been read before.
int readWhole(const FileDescriptor& file, const struct stat& facts, FileBytes& bytes);

int writeAll(int descriptor, std::string_view bytes);
/// They have reached the disk then.
int writeWhole(int descriptor, std::string_view bytes);

/// The file that a chain of symbolic links leads to, which need not exist. A link that another user has put
/// into a folder where everybody makes files isn't followed.
int followLinks(std::string& path);

FileDescriptor openFolder(const std::string& path);

/// The lock of a folder, on the folder itself; in a file of its own where the file system can't lock folders.
int lockFolder(const FileDescriptor& folder, const std::string& path, FileDescriptor& lockFile);

/// The usual name of a new file for the time being. Only the holder of the folder's lock uses it, so that one
/// name is enough, and what a process that was ended has left goes with the next one.
inline constexpr const char* newFileName = ".tovera-new";

/// That name, or one that nobody guesses, where somebody has left a file under it that can't be removed.
std::string freeName(const FileDescriptor& folder);

/// A new file under such a name.
int createNew(const FileDescriptor& folder, mode_t mode, FileDescriptor& file, std::string& name);

/// A file without a name, which is gone with its descriptor; not every file system has such files.
FileDescriptor createNameless(const FileDescriptor& folder, mode_t mode);
bool lacksNameless(int error);
int giveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name);

}  // namespace tovera
