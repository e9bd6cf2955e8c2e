#include "platform/linux/files/replacing.h"

#include <array>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "platform/linux/files/path_text.h"

namespace tovera {
namespace {

constexpr int mostLinks = 40;
constexpr const char* lockFileName = ".tovera-lock";

int lock(const FileDescriptor& file) {
    while (flock(file.get(), LOCK_EX) != 0) {
        if (errno != EINTR) return errno;
    }
    return 0;
}

}  // namespace

int followLinks(std::string& path) {
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> target;
        const auto length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) return errno == EINVAL || errno == ENOENT ? 0 : errno;
        const std::string_view leadsTo(target.data(), static_cast<std::size_t>(length));
        path = leadsTo.starts_with('/') ? std::string(leadsTo) : folderOf(path).append(leadsTo);
    }
    return ELOOP;
}

int lockFolder(const FileDescriptor& folder, FileDescriptor& lockFile) {
    if (lock(folder) == 0) return 0;
    lockFile = FileDescriptor(openat(folder.get(), lockFileName, O_RDWR | O_CREAT | O_CLOEXEC, 0666));
    return lockFile.isOpen() ? lock(lockFile) : errno;
}

FileDescriptor createNew(const FileDescriptor& folder, mode_t mode) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    FileDescriptor file(openat(folder.get(), newFileName, flags, mode));
    if (file.isOpen() || errno != EEXIST) return file;
    unlinkat(folder.get(), newFileName, 0);
    return FileDescriptor(openat(folder.get(), newFileName, flags, mode));
}

FileDescriptor createNameless(const FileDescriptor& folder, mode_t mode) {
    return FileDescriptor(openat(folder.get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
}

int giveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name) {
    const auto self = "/proc/self/fd/" + std::to_string(file.get());
    return linkat(AT_FDCWD, self.c_str(), folder.get(), name, AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
}

int takeOver(const FileDescriptor& file, const struct stat& old) {
    struct stat fresh {};
    if (fstat(file.get(), &fresh) != 0) return errno;
    if (fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid) {
        if (fchown(file.get(), old.st_uid, old.st_gid) != 0 && errno != EPERM) return errno;
    }
    return fchmod(file.get(), old.st_mode & 0777U) == 0 ? 0 : errno;
}

int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return errno;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

}  // namespace tovera
