#include "platform/registry.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"

namespace tovera {
namespace {

HKEY keyOf(I4 number) {
    return handleOf<HKEY>(number);
}

class WindowsRegistry : public Registry {
    I4 RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened) override {
        HKEY found = nullptr;
        const I4 status =
            callEntryPoint<&::RegOpenKeyExA>(advapi32, keyOf(key), subKey, options, access, &found);
        opened = numberOfHandle(found);
        return status;
    }
    I4 RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) override {
        HKEY made = nullptr;
        const I4 status = callEntryPoint<&::RegCreateKeyA>(advapi32, keyOf(key), subKey, &made);
        created = numberOfHandle(made);
        return status;
    }
    I4 RegSetValueExA(I4 key, const AnsiText& name, I4 reserved, I4 type,
                      std::span<const std::byte> data) override {
        return callEntryPoint<&::RegSetValueExA>(advapi32, keyOf(key), name, reserved, type,
                                                 reinterpret_cast<const BYTE*>(data.data()), data.size());
    }
    I4 RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data,
                        I4& size) override {
        auto typeFound = static_cast<DWORD>(type);
        auto bytes = static_cast<DWORD>(size);
        const I4 status = callEntryPoint<&::RegQueryValueExA>(advapi32, keyOf(key), name, nullptr, &typeFound,
                                                              reinterpret_cast<BYTE*>(data.data()), &bytes);
        type = static_cast<I4>(typeFound);
        size = static_cast<I4>(bytes);
        return status;
    }
    I4 RegDeleteKeyA(I4 key, const AnsiText& subKey) override {
        return callEntryPoint<&::RegDeleteKeyA>(advapi32, keyOf(key), subKey);
    }
    I4 RegCloseKey(I4 key) override { return callEntryPoint<&::RegCloseKey>(advapi32, keyOf(key)); }
};

}  // namespace

Registry& homeRegistry() {
    static WindowsRegistry port;
    return port;
}

}  // namespace tovera
