#include "platform/drives.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsDrives : public Drives {
    I4 GetDriveTypeA(const AnsiText& rootPath) override {
        return callEntryPoint<&::GetDriveTypeA>(kernel32, rootPath);
    }
    I4 GetVolumeInformationA(const AnsiText& rootPath, I4& serialNumber, I4& longestName,
                             I4& flags) override {
        auto serial = static_cast<DWORD>(serialNumber);
        auto longest = static_cast<DWORD>(longestName);
        auto bits = static_cast<DWORD>(flags);
        const I4 done = callEntryPoint<&::GetVolumeInformationA>(kernel32, rootPath, nullptr, 0, &serial,
                                                                 &longest, &bits, nullptr, 0);
        serialNumber = static_cast<I4>(serial);
        longestName = static_cast<I4>(longest);
        flags = static_cast<I4>(bits);
        return done;
    }
};

}  // namespace

Drives& homeDrives() {
    static WindowsDrives port;
    return port;
}

}  // namespace tovera
