#include "platform/linux/files/files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <optional>
#include <sys/sendfile.h>
#include <sys/stat.h>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_errors.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"

namespace tovera {
namespace {

bool isSame(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

/// Zero or errno, as with all functions here.
int copyBytes(int from, int to, off_t size) {
    while (size > 0) {
        const auto count = sendfile(to, from, nullptr, static_cast<std::size_t>(size));
        if (count < 0) return errno;
        if (count == 0) return EIO;  // the file has become shorter
        size -= count;
    }
    return 0;
}

int copyTo(const std::string& from, const struct stat& facts, int to) {
    const FileDescriptor source(open(from.c_str(), O_RDONLY | O_CLOEXEC));
    if (!source.isOpen()) return errno;
    if (const int error = copyBytes(source.get(), to, facts.st_size)) return error;
    const std::array times{facts.st_atim, facts.st_mtim};
    if (fchmod(to, facts.st_mode & 07777U) != 0 || futimens(to, times.data()) != 0) return errno;
    return fsync(to) == 0 ? 0 : errno;
}

int renameFree(const std::string& from, const std::string& to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0) return 0;
    if (errno != EINVAL && errno != ENOSYS) return errno;
    // A file system without that kind of rename: a second name for the file, then the first one goes.
    if (link(from.c_str(), to.c_str()) != 0) return errno;
    return unlink(from.c_str()) == 0 ? 0 : errno;
}

/// A file can't be renamed into another file system: it is copied, and the copy takes the new name when it is
/// whole.
int moveToOtherFileSystem(const std::string& from, const std::string& to) {
    const auto facts = factsOf(from);
    if (!facts) return errno;
    if (!S_ISREG(facts->st_mode)) return EXDEV;
    auto copy = folderOf(to) + ".tovera-XXXXXX";
    const FileDescriptor target(mkostemp(copy.data(), O_CLOEXEC));
    if (!target.isOpen()) return errno;
    int error = copyTo(from, *facts, target.get());
    if (error == 0) error = renameFree(copy, to);
    if (error != 0) {
        unlink(copy.c_str());
        return error;
    }
    if (unlink(from.c_str()) == 0) return 0;
    error = errno;
    unlink(to.c_str());
    return error;
}

int move(const std::string& from, const std::string& to) {
    const int error = renameFree(from, to);
    return error == EXDEV ? moveToOtherFileSystem(from, to) : error;
}

[[noreturn]] void raiseMissing(const std::string& from) {
    const bool folderIsThere = factsOf(folderOf(from)).has_value();
    if (folderIsThere && !factsOf(from)) raiseFileError(ENOENT);
    raise(ErrorNumber::PathNotFound);
}

/// As the run-time opens its files: for reading and writing, with a missing one made, else for reading alone.
/// A pipe would hold the caller, and a device is no file: neither is opened.
FileDescriptor openedForData(const std::string& path) {
    if (path.empty()) raise(ErrorNumber::PathNotFound);
    const auto facts = factsOfTarget(path);
    if (facts && !S_ISREG(facts->st_mode)) raise(ErrorNumber::PathAccess);
    if (!facts && !factsOfTarget(folderOf(path))) raise(ErrorNumber::PathNotFound);
    FileDescriptor file(open(path.c_str(), O_RDWR | O_CREAT | O_NONBLOCK | O_CLOEXEC, 0666));
    if (!file.isOpen() && (errno == EACCES || errno == EROFS))
        file = FileDescriptor(open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) raiseFileError(errno);
    return file;
}

}  // namespace

void LinuxFiles::rename(const Bstr& oldPath, const Bstr& newPath) {
    const auto from = foundHostPath(oldPath);
    auto to = foundHostPath(newPath);
    if (from.empty() || to.empty()) raise(ErrorNumber::PathNotFound);
    const auto old = factsOf(from);
    if (!old) raiseMissing(from);
    if (const auto inTheWay = factsOf(to)) {
        // A new name that differs in case alone finds the file itself.
        const auto written = hostPath(newPath);
        to = folderOf(to) + written.substr(written.rfind('/') + 1);
        if (!isSame(*old, *inTheWay) || factsOf(to)) raise(ErrorNumber::FileExists);
    }
    const int error = move(from, to);
    if (error == ENOENT) raiseMissing(from);
    if (error != 0) raiseFileError(error);
}

void LinuxFiles::readI2(const Bstr& path, I4 position, I2& number) {
    const auto file = openedForData(foundHostPath(path));
    std::array<unsigned char, sizeof number> bytes{static_cast<unsigned char>(number),
                                                   static_cast<unsigned char>(number >> 8)};
    if (pread(file.get(), bytes.data(), bytes.size(), position - 1) < 0) raiseFileError(errno);
    number = static_cast<I2>(bytes[0] | bytes[1] << 8);
}

}  // namespace tovera
