#include "platform/linux/files/file_access.h"

#include <array>
#include <cerrno>
#include <climits>
#include <random>

#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/patient_lock.h"

namespace tovera {
namespace {

constexpr int mostLinks = 40;
constexpr const char* lockFileName = ".tovera-lock";

/// In a folder where everybody makes files, a link of another user may lead anywhere.
bool isTrusted(const std::string& link) {
    const auto facts = factsOf(link);
    const auto folder = factsOfTarget(folderOf(link));
    if (!facts || !folder) return false;
    const bool isShared = (folder->st_mode & S_ISVTX) != 0 && (folder->st_mode & S_IWOTH) != 0;
    return !isShared || facts->st_uid == geteuid() || facts->st_uid == folder->st_uid;
}

}  // namespace

int factsOfRegular(const FileDescriptor& file, struct stat& facts) {
    if (!file.isOpen() || fstat(file.get(), &facts) != 0) return errno;
    if (S_ISDIR(facts.st_mode)) return EISDIR;
    return S_ISREG(facts.st_mode) ? 0 : EACCES;
}

int readWhole(const FileDescriptor& file, const struct stat& facts, FileBytes& bytes) {
    const auto size = static_cast<std::size_t>(facts.st_size);
    auto* const room = bytes.room(size);
    std::size_t filled = 0;
    while (filled < size) {
        const auto count = pread(file.get(), room + filled, size - filled, static_cast<off_t>(filled));
        if (count < 0 && errno != EINTR) return errno;
        if (count == 0) break;
        if (count > 0) filled += static_cast<std::size_t>(count);
    }
    bytes.setSize(filled);
    return 0;
}

int writeAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = write(descriptor, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return errno;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

int writeWhole(int descriptor, std::string_view bytes) {
    if (const int error = writeAll(descriptor, bytes)) return error;
    return fsync(descriptor) == 0 ? 0 : errno;
}

int followLinks(std::string& path) {
    for (int links = 0; links < mostLinks; ++links) {
        std::array<char, PATH_MAX> target;
        const auto length = readlink(path.c_str(), target.data(), target.size());
        if (length < 0) return errno == EINVAL || errno == ENOENT ? 0 : errno;
        if (!isTrusted(path)) return EACCES;
        const std::string_view leadsTo(target.data(), static_cast<std::size_t>(length));
        path = leadsTo.starts_with('/') ? std::string(leadsTo) : folderOf(path).append(leadsTo);
    }
    return ELOOP;
}

FileDescriptor openFolder(const std::string& path) {
    return FileDescriptor(open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

int lockFolder(const FileDescriptor& folder, const std::string& path, FileDescriptor& lockFile) {
    const int error = lockPatiently(folder, path);
    if (error == 0 || error == EBUSY) return error;
    constexpr int flags = O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    lockFile = FileDescriptor(openat(folder.get(), lockFileName, flags, 0666));
    // One that somebody has made for himself alone is no reason never to write.
    return lockFile.isOpen() ? lockPatiently(lockFile, path + lockFileName) : 0;
}

std::string freeName(const FileDescriptor& folder) {
    constexpr int mostAttempts = 16;
    std::random_device random;
    std::string name = newFileName;
    struct stat facts {};
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        unlinkat(folder.get(), name.c_str(), 0);
        if (fstatat(folder.get(), name.c_str(), &facts, AT_SYMLINK_NOFOLLOW) != 0) break;
        name = newFileName + ('-' + std::to_string(random()));
    }
    return name;
}

int createNew(const FileDescriptor& folder, mode_t mode, FileDescriptor& file, std::string& name) {
    constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
    name = freeName(folder);
    file = FileDescriptor(openat(folder.get(), name.c_str(), flags, mode));
    return file.isOpen() ? 0 : errno;
}

FileDescriptor createNameless(const FileDescriptor& folder, mode_t mode) {
    return FileDescriptor(openat(folder.get(), ".", O_TMPFILE | O_RDWR | O_CLOEXEC, mode));
}

bool lacksNameless(int error) {
    return error == EOPNOTSUPP || error == EISDIR || error == ENOENT;
}

int giveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name) {
    const auto self = "/proc/self/fd/" + std::to_string(file.get());
    return linkat(AT_FDCWD, self.c_str(), folder.get(), name, AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
}

}  // namespace tovera
