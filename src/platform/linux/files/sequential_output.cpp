#include "platform/sequential_output.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/files/file_errors.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/path_text.h"
#include "platform/linux/files/paths.h"

namespace tovera {
namespace {

constexpr mode_t forUserAlone = S_IRUSR | S_IWUSR;

/// Emptied only when it is known to be a file of one name: a planted link would lead to another one.
FileDescriptor opened(const std::string& path) {
    if (path.empty() || !factsOfTarget(folderOf(path))) raise(ErrorNumber::PathNotFound);
    constexpr int flags = O_WRONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    FileDescriptor file(open(path.c_str(), flags, forUserAlone));
    struct stat facts {};
    if (!file.isOpen() || fstat(file.get(), &facts) != 0) raiseFileError(errno);
    if (!S_ISREG(facts.st_mode) || facts.st_nlink > 1) raise(ErrorNumber::PathAccess);
    if (facts.st_uid == geteuid() && fchmod(file.get(), forUserAlone) != 0) raiseFileError(errno);
    if (ftruncate(file.get(), 0) != 0) raiseFileError(errno);
    return file;
}

void writeWhole(const FileDescriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = write(file.get(), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) raiseFileError(errno);
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

struct LinuxOutputFile : OutputFile {
    explicit LinuxOutputFile(FileDescriptor opened) : file(std::move(opened)) {}
    void printLine(std::string_view line) override { writeWhole(file, std::string(line) + "\r\n"); }
    void close() override {
        if (file.isOpen() && ::close(file.release()) != 0 && errno != EINTR) raiseFileError(errno);
    }
    FileDescriptor file;
};

class LinuxSequentialOutput : public SequentialOutput {
    std::unique_ptr<OutputFile> openForOutput(const Bstr& path) override {
        return std::make_unique<LinuxOutputFile>(opened(foundHostPath(path)));
    }
};

}  // namespace

SequentialOutput& homeSequentialOutput() {
    static LinuxSequentialOutput port;
    return port;
}

}  // namespace tovera
