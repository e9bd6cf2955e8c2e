#include "platform/file_names.h"

#include <cerrno>

#include "frame/last_error.h"
#include "platform/linux/files/long_names.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

I4 giveIfFound(AnsiText& buffer, const std::optional<std::u16string>& path) {
    lastError() = path ? 0 : ENOENT;
    return path ? fillWhole(buffer, *path) : 0;
}

class LinuxFileNames : public FileNames {
    I4 GetLongPathNameA(const AnsiText& shortName, AnsiText& buffer) override {
        return giveIfFound(buffer, longPath(textOf(shortName)));
    }
    I4 GetShortPathNameA(const AnsiText& longName, AnsiText& buffer) override {
        return giveIfFound(buffer, shortPath(textOf(longName)));
    }
};

}  // namespace

FileNames& homeFileNames() {
    static LinuxFileNames port;
    return port;
}

}  // namespace tovera
