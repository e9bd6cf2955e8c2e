#include "platform/linux/files/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>

#include "platform/linux/files/file_access.h"

namespace tovera {
namespace {

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

}  // namespace tovera
