#include "platform/profiles.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsProfiles : public Profiles {
    I4 WritePrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value,
                                  const AnsiText& file) override {
        return callEntryPoint<&::WritePrivateProfileStringA>(kernel32, section, key, value, file);
    }
    I4 GetPrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                                AnsiText& buffer, const AnsiText& file) override {
        return callEntryPoint<&::GetPrivateProfileStringA>(kernel32, section, key, defaultValue, buffer,
                                                           roomIn(buffer), file);
    }
    I4 WriteProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value) override {
        return callEntryPoint<&::WriteProfileStringA>(kernel32, section, key, value);
    }
    I4 GetProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                         AnsiText& buffer) override {
        return callEntryPoint<&::GetProfileStringA>(kernel32, section, key, defaultValue, buffer,
                                                    roomIn(buffer));
    }
};

}  // namespace

Profiles& homeProfiles() {
    static WindowsProfiles port;
    return port;
}

}  // namespace tovera
