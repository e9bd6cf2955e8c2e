#include "platform/windows/advapi32.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"

namespace tovera {
namespace {

HKEY keyOf(I4 number) {
    return handleOf<HKEY>(number);
}

}  // namespace

I4 WindowsAdvapi32::RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened) {
    static constinit EntryPoint<decltype(::RegOpenKeyExA)> open{L"advapi32", "RegOpenKeyExA"};
    HKEY found = nullptr;
    const I4 status = open(keyOf(key), subKey.addressOrNull(), static_cast<DWORD>(options),
                           static_cast<REGSAM>(access), &found);
    opened = numberOfHandle(found);
    return status;
}

I4 WindowsAdvapi32::RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) {
    static constinit EntryPoint<decltype(::RegCreateKeyA)> create{L"advapi32", "RegCreateKeyA"};
    HKEY made = nullptr;
    const I4 status = create(keyOf(key), subKey.addressOrNull(), &made);
    created = numberOfHandle(made);
    return status;
}

I4 WindowsAdvapi32::RegSetValueExA(I4 key, const AnsiText& name, I4 reserved, I4 type,
                                   std::span<const std::byte> data) {
    static constinit EntryPoint<decltype(::RegSetValueExA)> set{L"advapi32", "RegSetValueExA"};
    return set(keyOf(key), name.addressOrNull(), static_cast<DWORD>(reserved), static_cast<DWORD>(type),
               reinterpret_cast<const BYTE*>(data.data()), static_cast<DWORD>(data.size()));
}

I4 WindowsAdvapi32::RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data,
                                     I4& size) {
    static constinit EntryPoint<decltype(::RegQueryValueExA)> query{L"advapi32", "RegQueryValueExA"};
    auto typeFound = static_cast<DWORD>(type);
    auto bytes = static_cast<DWORD>(size);
    const I4 status = query(keyOf(key), name.addressOrNull(), nullptr, &typeFound,
                            reinterpret_cast<BYTE*>(data.data()), &bytes);
    type = static_cast<I4>(typeFound);
    size = static_cast<I4>(bytes);
    return status;
}

I4 WindowsAdvapi32::RegDeleteKeyA(I4 key, const AnsiText& subKey) {
    static constinit EntryPoint<decltype(::RegDeleteKeyA)> remove{L"advapi32", "RegDeleteKeyA"};
    return remove(keyOf(key), subKey.addressOrNull());
}

I4 WindowsAdvapi32::RegCloseKey(I4 key) {
    static constinit EntryPoint<decltype(::RegCloseKey)> close{L"advapi32", "RegCloseKey"};
    return close(keyOf(key));
}

}  // namespace tovera
