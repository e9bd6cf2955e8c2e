#include "platform/system_facts.h"

#include <dlfcn.h>
#include <filesystem>

#include "platform/linux/files/paths.h"
#include "platform/linux/text/ansi_buffer.h"
#include "platform/linux/text/code_pages.h"

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
    /// This system has no version of Windows.
    I4 GetVersionExA(OsVersionInfo& /*version*/) override { return 0; }
    I4 GetModuleFileNameA(I4 /*module*/, AnsiText& buffer) override {
        Dl_info module{};
        dladdr(reinterpret_cast<const void*>(&homeSystemFacts), &module);
        const auto file =
            windowsPath(std::filesystem::absolute(module.dli_fname ? module.dli_fname : "").string());
        return fill(buffer, toAnsi1252(file));
    }
};

}  // namespace

SystemFacts& homeSystemFacts() {
    static LinuxSystemFacts port;
    return port;
}

}  // namespace tovera
