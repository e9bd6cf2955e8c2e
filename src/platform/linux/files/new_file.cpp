#include "platform/linux/files/new_file.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/linux/files/file_access.h"
#include "platform/linux/files/file_attributes.h"
#include "platform/linux/files/in_place.h"
#include "platform/linux/files/path_text.h"

namespace tovera {
namespace {

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

NewFile::~NewFile() {
    if (!ownName_.empty()) unlinkat(folder_.get(), ownName_.c_str(), 0);
}

int NewFile::begin(const std::string& path) {
    auto target = path;
    if (const int error = followLinks(target)) return error;
    if (target.empty() || target.ends_with('/')) return EISDIR;
    folderPath_ = folderOf(target);
    folder_ = openFolder(folderPath_);
    if (!folder_.isOpen()) return errno;
    name_ = target.substr(target.rfind('/') + 1);
    if (const int error = checkReplaceable(folder_, name_.c_str(), nullptr)) return error;
    return openNameless();
}

int NewFile::openNameless() {
    file_ = createNameless(folder_, 0666);
    if (file_.isOpen()) return 0;
    if (!lacksNameless(errno)) return errno;
    for (int number = 0;; ++number) {
        ownName_ = newFileName + std::string("-") + std::to_string(getpid()) + '-' + std::to_string(number);
        constexpr int flags = O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC;
        file_ = FileDescriptor(openat(folder_.get(), ownName_.c_str(), flags, 0666));
        if (file_.isOpen()) return 0;
        ownName_.clear();
        if (errno != EEXIST) return errno;
    }
}

int NewFile::append(std::string_view bytes) {
    return writeAll(file_.get(), bytes);
}

/// The bytes go into the file that has the name: a new one couldn't have what goes with that.
int NewFile::finishInPlace(const FileDescriptor& old, const struct stat& facts) {
    struct stat newFacts {};
    if (fstat(file_.get(), &newFacts) != 0) return errno;
    FileBytes oldBytes;
    FileBytes newBytes;
    int error = readWhole(old, facts, oldBytes);
    if (error == 0) error = readWhole(file_, newFacts, newBytes);
    if (error != 0) return error;
    const FileDescriptor target(openat(folder_.get(), name_.c_str(), writeFlags));
    if (!target.isOpen()) return errno;
    return writeInPlace(target, facts, folderPath_ + name_, oldBytes.view(), newBytes.view());
}

int NewFile::finish() {
    FileDescriptor lockFile;
    if (const int error = lockFolder(folder_, folderPath_, lockFile)) return error;
    struct stat facts {};
    if (const int error = checkReplaceable(folder_, name_.c_str(), &facts)) return error;
    const bool isTaken = facts.st_nlink > 0;
    if (isTaken) {
        const FileDescriptor old(openat(folder_.get(), name_.c_str(), readFlags | O_NOFOLLOW));
        if (!old.isOpen()) return errno;
        if (!takeAttributes(file_, old, facts)) return finishInPlace(old, facts);
    }
    if (ownName_.empty()) {
        unlinkat(folder_.get(), newFileName, 0);
        if (isTaken) return replaceOld();
        const int error = giveName(file_, folder_, name_.c_str());
        return error == EEXIST ? replaceOld() : error;
    }
    if (renameat(folder_.get(), ownName_.c_str(), folder_.get(), name_.c_str()) != 0) return errno;
    ownName_.clear();
    return 0;
}

/// A file without a name can't replace another one at once: it takes a name of its own between. Both steps
/// are one of a short process that signals to this one don't reach, so that none of them leaves that name
/// behind.
int NewFile::replaceOld() {
    const auto self = "/proc/self/fd/" + std::to_string(file_.get());
    const int folder = folder_.get();
    const char* const name = name_.c_str();
    const char* const path = self.c_str();
    const auto between = freeName(folder_);
    const char* const newName = between.c_str();
    volatile int error = 0;
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    // The short process shares the memory, and makes system calls only: with posix_spawn it could make none.
    // NOLINTBEGIN(clang-analyzer-security.insecureAPI.vfork,clang-analyzer-unix.Vfork)
    const pid_t process = vfork();
    if (process == 0) {
        if (linkat(AT_FDCWD, path, folder, newName, AT_SYMLINK_FOLLOW) != 0) {
            error = errno;
        } else if (renameat(folder, newName, folder, name) != 0) {
            error = errno;
            unlinkat(folder, newName, 0);
        }
        _exit(0);
    }
    // NOLINTEND(clang-analyzer-security.insecureAPI.vfork,clang-analyzer-unix.Vfork)
    if (process < 0) error = errno;
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    while (process > 0 && waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
    }
    return error;
}

}  // namespace tovera
