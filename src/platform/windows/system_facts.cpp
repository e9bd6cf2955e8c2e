#include "platform/system_facts.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsSystemFacts : public SystemFacts {
    I4 GetSystemDirectoryA(AnsiText& buffer) override {
        return callEntryPoint<&::GetSystemDirectoryA>(kernel32, buffer, roomIn(buffer));
    }
    I4 GetWindowsDirectoryA(AnsiText& buffer) override {
        return callEntryPoint<&::GetWindowsDirectoryA>(kernel32, buffer, roomIn(buffer));
    }
};

}  // namespace

SystemFacts& homeSystemFacts() {
    static WindowsSystemFacts port;
    return port;
}

}  // namespace tovera
