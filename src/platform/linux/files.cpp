#include "platform/linux/files.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>

#include "frame/utf8.h"
#include "platform/linux/file_errors.h"

namespace tovera {

void LinuxFiles::rename(const Bstr& oldPath, const Bstr& newPath) {
    const auto from = toUtf8(oldPath);
    const auto to = toUtf8(newPath);
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) != 0) raiseFileError(errno);
}

}  // namespace tovera
