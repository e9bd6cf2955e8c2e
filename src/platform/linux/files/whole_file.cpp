#include "platform/linux/files/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#include "platform/linux/files/path_text.h"
#include "platform/linux/files/replacing.h"

namespace tovera {
namespace {

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

int writeWhole(int descriptor, std::string_view bytes) {
    if (const int error = writeAll(descriptor, bytes)) return error;
    return fsync(descriptor) == 0 ? 0 : errno;
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

/// Makes a file with a name beside the wanted one, under the folder's lock.
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

}  // namespace tovera
