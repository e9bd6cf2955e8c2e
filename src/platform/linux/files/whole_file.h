#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <sys/types.h>

#include "platform/linux/files/file_bytes.h"

// Files that are read and replaced as a whole. Not for those of the kernel, which come in pieces and have no
// size.
namespace tovera {

/// Reads a regular file. The result is 0 or the system's error number, as with all functions here.
int readFile(const std::string& path, FileBytes& bytes);

/// Takes whole lines of a file, the last of which may lack its end, and tells whether it wants more.
using TakeLines = std::function<bool(std::string_view lines)>;

/// Reads a regular file piece by piece, so that a large one is neither kept nor read to its end. A piece may
/// begin with the line feed whose carriage return ended the one before.
int readLines(const std::string& path, const TakeLines& take);

/// What becomes of a file's bytes (none for a missing file): its new ones, or nothing to leave it as it is.
using FileChange = std::function<std::optional<std::string>(std::string_view bytes)>;

/// Changes a file whole or not at all, also when this process ends in the middle: the new bytes are written
/// beside it, reach the disk, and take its name, with its owner, group, permissions, access list and further
/// attributes. Where they can't have these, or the folder is closed to us, they are written in place, and the
/// old ones are kept until that is done. A missing file is made, a missing folder isn't. A symbolic link
/// stays, and the file that it leads to changes. The changes of all processes happen one after the other, so
/// that none is lost; EBUSY when another program keeps the folder's lock for ten seconds.
int changeFile(const std::string& path, const FileChange& change);

/// Makes a file whole or not at all, also when this process ends in the middle: its bytes reach the disk
/// before it has its name. EEXIST where the name is taken: what bears it stays as it is.
int makeFile(const std::string& path, std::string_view bytes, mode_t mode);

}  // namespace tovera
