#include "platform/system_facts.h"

#include "platform/linux/files/paths.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

class LinuxSystemFacts : public SystemFacts {
    I4 GetSystemDirectoryA(AnsiText& buffer) override {
        makeWindowsFolders();
        return fillWhole(buffer, systemFolder);
    }
    I4 GetWindowsDirectoryA(AnsiText& buffer) override {
        makeWindowsFolders();
        return fillWhole(buffer, windowsFolder);
    }
};

}  // namespace

SystemFacts& homeSystemFacts() {
    static LinuxSystemFacts port;
    return port;
}

}  // namespace tovera
