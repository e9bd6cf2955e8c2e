#include "platform/system_facts.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"
#include "platform/windows/module.h"

namespace tovera {
namespace {

class WindowsSystemFacts : public SystemFacts {
    I4 GetSystemDirectoryA(AnsiText& buffer) override {
        return callEntryPoint<&::GetSystemDirectoryA>(kernel32, buffer, roomIn(buffer));
    }
    I4 GetWindowsDirectoryA(AnsiText& buffer) override {
        return callEntryPoint<&::GetWindowsDirectoryA>(kernel32, buffer, roomIn(buffer));
    }
    I4 GetVersionExA(OsVersionInfo& version) override {
        OSVERSIONINFOA system{};
        system.dwOSVersionInfoSize = static_cast<DWORD>(version.dwOSVersionInfoSize);
        const I4 done = callEntryPoint<&::GetVersionExA>(kernel32, &system);
        version.dwMajorVersion = static_cast<I4>(system.dwMajorVersion);
        version.dwMinorVersion = static_cast<I4>(system.dwMinorVersion);
        version.dwBuildNumber = static_cast<I4>(system.dwBuildNumber);
        version.dwPlatformId = static_cast<I4>(system.dwPlatformId);
        version.szCSDVersion = static_cast<const char*>(system.szCSDVersion);
        return done;
    }
    I4 GetModuleFileNameA(I4 module, AnsiText& buffer) override {
        // Of 64 bits, the number of the own module is no whole handle.
        const auto handle = module == numberOfHandle(ownModule()) ? ownModule() : handleOf<HMODULE>(module);
        return callEntryPoint<&::GetModuleFileNameA>(kernel32, handle, buffer, roomIn(buffer));
    }
};

}  // namespace

SystemFacts& homeSystemFacts() {
    static WindowsSystemFacts port;
    return port;
}

}  // namespace tovera
