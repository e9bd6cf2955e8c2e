#include "platform/linux/files/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/path_text.h"

namespace tovera {
namespace {

constexpr int mostLinks = 40;
/// Only the holder of the folder's lock writes it, so that one name is enough, and what a process that was
/// ended has left is overwritten by the next one.
constexpr const char* newFileName = ".tovera-new";
constexpr const char* lockFileName = ".tovera-lock";

/// All bytes of a file of this size, whatever has been read before.
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

/// Most files end within a first read, and their size needn't be asked for. False for one that hasn't.
bool readSmall(const FileDescriptor& file, FileBytes& bytes) {
    const auto count = read(file.get(), bytes.room(FileBytes::smallSize), FileBytes::smallSize);
    if (count < 0 || static_cast<std::size_t>(count) == FileBytes::smallSize) return false;
    bytes.setSize(static_cast<std::size_t>(count));
    return true;
}

int readPieces(const FileDescriptor& file, const TakeLines& take) {
    std::string buffer(std::size_t{4} * FileBytes::smallSize, '\0');
    std::size_t kept = 0;  // of a line whose end is still to come
    for (off_t place = 0;;) {
        if (kept == buffer.size()) buffer.resize(2 * kept);
        const auto count = pread(file.get(), &buffer[kept], buffer.size() - kept, place);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        place += count;
        const std::string_view filled(buffer.data(), kept + static_cast<std::size_t>(count));
        const auto whole = count == 0 ? filled.size() : filled.find_last_of("\r\n") + 1;
        if (!take(filled.substr(0, whole)) || count == 0) return 0;
        kept = filled.size() - whole;
        std::ranges::copy(filled.substr(whole), buffer.begin());
    }
}

/// Not blocking, since a pipe would wait for a writer.
constexpr int readFlags = O_RDONLY | O_CLOEXEC | O_NONBLOCK;

int factsOfRegular(const FileDescriptor& file, struct stat& facts) {
    if (!file.isOpen() || fstat(file.get(), &facts) != 0) return errno;
    if (S_ISDIR(facts.st_mode)) return EISDIR;
    return S_ISREG(facts.st_mode) ? 0 : EACCES;
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

/// The file that a chain of symbolic links leads to, which need not exist.
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

int lock(const FileDescriptor& file) {
    while (flock(file.get(), LOCK_EX) != 0) {
        if (errno != EINTR) return errno;
    }
    return 0;
}

/// The lock of a folder, on the folder itself; in a file of its own where the file system can't lock folders.
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

/// The owner stays where the system lets us give files away.
int takeOver(const FileDescriptor& file, const struct stat& old) {
    struct stat fresh {};
    if (fstat(file.get(), &fresh) != 0) return errno;
    if (fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid) {
        if (fchown(file.get(), old.st_uid, old.st_gid) != 0 && errno != EPERM) return errno;
    }
    return fchmod(file.get(), old.st_mode & 07777U) == 0 ? 0 : errno;
}

int replace(const FileDescriptor& folder, const char* name, const struct stat* old, std::string_view bytes) {
    const auto file = createNew(folder, old ? 0600 : 0666);
    if (!file.isOpen()) return errno;
    int error = old ? takeOver(file, *old) : 0;
    if (error == 0) error = writeWhole(file.get(), bytes);
    if (error == 0 && renameat(folder.get(), newFileName, folder.get(), name) != 0) error = errno;
    if (error != 0) {
        unlinkat(folder.get(), newFileName, 0);
        return error;
    }
    fsync(folder.get());
    return 0;
}

/// A file without a name, which is gone with its descriptor; not every file system has such files.
FileDescriptor createNameless(const FileDescriptor& folder, mode_t mode) {
    return FileDescriptor(openat(folder.get(), ".", O_TMPFILE | O_WRONLY | O_CLOEXEC, mode));
}

int giveName(const FileDescriptor& file, const FileDescriptor& folder, const char* name) {
    const auto self = "/proc/self/fd/" + std::to_string(file.get());
    return linkat(AT_FDCWD, self.c_str(), folder.get(), name, AT_SYMLINK_FOLLOW) == 0 ? 0 : errno;
}

/// The same with a name beside the wanted one, under the folder's lock.
int makeBeside(const FileDescriptor& folder, const char* name, std::string_view bytes, mode_t mode) {
    FileDescriptor lockFile;
    if (const int error = lockFolder(folder, lockFile)) return error;
    const auto file = createNew(folder, mode);
    if (!file.isOpen()) return errno;
    int error = fchmod(file.get(), mode) == 0 ? writeWhole(file.get(), bytes) : errno;
    if (error == 0 && linkat(folder.get(), newFileName, folder.get(), name, 0) != 0) error = errno;
    unlinkat(folder.get(), newFileName, 0);
    return error;
}

/// Whether a file may be made or replaced under a name. The facts are left as they are where there is none.
int checkReplaceable(const FileDescriptor& folder, const char* name, struct stat* old) {
    struct stat facts {};
    if (fstatat(folder.get(), name, &facts, AT_SYMLINK_NOFOLLOW) != 0) return errno == ENOENT ? 0 : errno;
    if (!S_ISREG(facts.st_mode)) return S_ISDIR(facts.st_mode) ? EISDIR : EACCES;
    if (faccessat(folder.get(), name, W_OK, AT_EACCESS) != 0) return errno;
    if (old) *old = facts;
    return 0;
}

}  // namespace

int readFile(const std::string& path, FileBytes& bytes) {
    const FileDescriptor file(open(path.c_str(), readFlags));
    if (!file.isOpen()) return errno;
    if (readSmall(file, bytes)) return 0;
    struct stat facts {};
    const int error = factsOfRegular(file, facts);
    return error != 0 ? error : readWhole(file, facts, bytes);
}

int readLines(const std::string& path, const TakeLines& take) {
    const FileDescriptor file(open(path.c_str(), readFlags));
    if (!file.isOpen()) return errno;
    FileBytes bytes;
    if (readSmall(file, bytes)) {
        take(bytes.view());
        return 0;
    }
    struct stat facts {};
    const int error = factsOfRegular(file, facts);
    return error != 0 ? error : readPieces(file, take);
}

int changeFile(const std::string& path, const FileChange& change) {
    auto target = path;
    if (const int error = followLinks(target)) return error;
    if (target.empty() || target.ends_with('/')) return EISDIR;
    const FileDescriptor folder(open(folderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) return errno;
    FileDescriptor lockFile;
    if (const int error = lockFolder(folder, lockFile)) return error;

    const auto* const name = target.c_str() + (target.rfind('/') + 1);
    const FileDescriptor file(openat(folder.get(), name, readFlags));
    struct stat facts {};
    FileBytes bytes;
    const int opened = factsOfRegular(file, facts);
    if (opened != 0 && opened != ENOENT) return opened;
    if (opened == 0) {
        if (faccessat(folder.get(), name, W_OK, AT_EACCESS) != 0) return errno;
        if (const int error = readWhole(file, facts, bytes)) return error;
    }
    const auto changed = change(bytes.view());
    return changed ? replace(folder, name, opened == 0 ? &facts : nullptr, *changed) : 0;
}

int makeFile(const std::string& path, std::string_view bytes, mode_t mode) {
    const FileDescriptor folder(open(folderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.isOpen()) return errno;
    const auto* const name = path.c_str() + (path.rfind('/') + 1);
    int error = 0;
    if (const auto file = createNameless(folder, mode); file.isOpen()) {
        error = fchmod(file.get(), mode) == 0 ? writeWhole(file.get(), bytes) : errno;
        if (error == 0) error = giveName(file, folder, name);
    } else if (errno == EOPNOTSUPP || errno == EISDIR || errno == ENOENT) {
        error = makeBeside(folder, name, bytes, mode);
    } else {
        error = errno;
    }
    if (error == 0) fsync(folder.get());
    return error;
}

NewFile::~NewFile() {
    if (!ownName_.empty()) unlinkat(folder_.get(), ownName_.c_str(), 0);
}

int NewFile::begin(const std::string& path) {
    auto target = path;
    if (const int error = followLinks(target)) return error;
    if (target.empty() || target.ends_with('/')) return EISDIR;
    folder_ = FileDescriptor(open(folderOf(target).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder_.isOpen()) return errno;
    name_ = target.substr(target.rfind('/') + 1);
    if (const int error = checkReplaceable(folder_, name_.c_str(), nullptr)) return error;
    return openNameless();
}

int NewFile::openNameless() {
    file_ = createNameless(folder_, 0666);
    if (file_.isOpen()) return 0;
    if (errno != EOPNOTSUPP && errno != EISDIR && errno != ENOENT) return errno;
    for (int number = 0;; ++number) {
        ownName_ = newFileName + std::string("-") + std::to_string(getpid()) + '-' + std::to_string(number);
        constexpr int flags = O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC;
        file_ = FileDescriptor(openat(folder_.get(), ownName_.c_str(), flags, 0666));
        if (file_.isOpen()) return 0;
        ownName_.clear();
        if (errno != EEXIST) return errno;
    }
}

int NewFile::append(std::string_view bytes) {
    return writeAll(file_.get(), bytes);
}

int NewFile::finish() {
    FileDescriptor lockFile;
    if (const int error = lockFolder(folder_, lockFile)) return error;
    struct stat old {};
    if (const int error = checkReplaceable(folder_, name_.c_str(), &old)) return error;
    if (old.st_nlink > 0) {
        if (const int error = takeOver(file_, old)) return error;
    }
    if (ownName_.empty()) {
        // A name that is free is given at once, so that no moment leaves another one behind.
        if (old.st_nlink == 0 && giveName(file_, folder_, name_.c_str()) == 0) return 0;
        unlinkat(folder_.get(), newFileName, 0);
        if (const int error = giveName(file_, folder_, newFileName)) return error;
        ownName_ = newFileName;
    }
    if (renameat(folder_.get(), ownName_.c_str(), folder_.get(), name_.c_str()) != 0) return errno;
    ownName_.clear();
    return 0;
}

}  // namespace tovera
