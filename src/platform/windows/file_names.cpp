#include "platform/file_names.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsFileNames : public FileNames {
    I4 GetLongPathNameA(const AnsiText& shortName, AnsiText& buffer) override {
        return callEntryPoint<&::GetLongPathNameA>(kernel32, shortName, buffer, roomIn(buffer));
    }
    I4 GetShortPathNameA(const AnsiText& longName, AnsiText& buffer) override {
        return callEntryPoint<&::GetShortPathNameA>(kernel32, longName, buffer, roomIn(buffer));
    }
};

}  // namespace

FileNames& homeFileNames() {
    static WindowsFileNames port;
    return port;
}

}  // namespace tovera
