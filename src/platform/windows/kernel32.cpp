#include "platform/windows/kernel32.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

DWORD roomIn(const AnsiText& buffer) {
    return static_cast<DWORD>(buffer.bytes.size());
}

}  // namespace

I4 WindowsKernel32::WritePrivateProfileStringA(const AnsiText& section, const AnsiText& key,
                                               const AnsiText& value, const AnsiText& file) {
    static constinit EntryPoint<decltype(::WritePrivateProfileStringA)> write{L"kernel32",
                                                                              "WritePrivateProfileStringA"};
    return write(section.addressOrNull(), key.addressOrNull(), value.addressOrNull(), file.addressOrNull());
}

I4 WindowsKernel32::GetPrivateProfileStringA(const AnsiText& section, const AnsiText& key,
                                             const AnsiText& defaultValue, AnsiText& buffer,
                                             const AnsiText& file) {
    static constinit EntryPoint<decltype(::GetPrivateProfileStringA)> read{L"kernel32",
                                                                           "GetPrivateProfileStringA"};
    return static_cast<I4>(read(section.addressOrNull(), key.addressOrNull(), defaultValue.addressOrNull(),
                                buffer.addressOrNull(), roomIn(buffer), file.addressOrNull()));
}

I4 WindowsKernel32::WriteProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value) {
    static constinit EntryPoint<decltype(::WriteProfileStringA)> write{L"kernel32", "WriteProfileStringA"};
    return write(section.addressOrNull(), key.addressOrNull(), value.addressOrNull());
}

I4 WindowsKernel32::GetProfileStringA(const AnsiText& section, const AnsiText& key,
                                      const AnsiText& defaultValue, AnsiText& buffer) {
    static constinit EntryPoint<decltype(::GetProfileStringA)> read{L"kernel32", "GetProfileStringA"};
    return static_cast<I4>(read(section.addressOrNull(), key.addressOrNull(), defaultValue.addressOrNull(),
                                buffer.addressOrNull(), roomIn(buffer)));
}

I4 WindowsKernel32::GetSystemDirectoryA(AnsiText& buffer) {
    static constinit EntryPoint<decltype(::GetSystemDirectoryA)> read{L"kernel32", "GetSystemDirectoryA"};
    return static_cast<I4>(read(buffer.addressOrNull(), roomIn(buffer)));
}

I4 WindowsKernel32::GetWindowsDirectoryA(AnsiText& buffer) {
    static constinit EntryPoint<decltype(::GetWindowsDirectoryA)> read{L"kernel32", "GetWindowsDirectoryA"};
    return static_cast<I4>(read(buffer.addressOrNull(), roomIn(buffer)));
}

I4 WindowsKernel32::GetLongPathNameA(const AnsiText& shortName, AnsiText& buffer) {
    static constinit EntryPoint<decltype(::GetLongPathNameA)> read{L"kernel32", "GetLongPathNameA"};
    return static_cast<I4>(read(shortName.addressOrNull(), buffer.addressOrNull(), roomIn(buffer)));
}

I4 WindowsKernel32::GetShortPathNameA(const AnsiText& longName, AnsiText& buffer) {
    static constinit EntryPoint<decltype(::GetShortPathNameA)> read{L"kernel32", "GetShortPathNameA"};
    return static_cast<I4>(read(longName.addressOrNull(), buffer.addressOrNull(), roomIn(buffer)));
}

}  // namespace tovera
