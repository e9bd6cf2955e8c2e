#pragma once

#include <cstddef>
#include <span>

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Handles of the registry's root keys.
namespace rootKeys {
inline constexpr I4 classesRoot = static_cast<I4>(0x80000000U);
inline constexpr I4 currentUser = static_cast<I4>(0x80000001U);
inline constexpr I4 localMachine = static_cast<I4>(0x80000002U);
inline constexpr I4 users = static_cast<I4>(0x80000003U);
inline constexpr I4 performanceData = static_cast<I4>(0x80000004U);
inline constexpr I4 currentConfig = static_cast<I4>(0x80000005U);
inline constexpr I4 dynData = static_cast<I4>(0x80000006U);
}  // namespace rootKeys

/// What a key is opened for.
namespace keyAccess {
inline constexpr I4 read = 0x20019;
inline constexpr I4 write = 0x20006;
}  // namespace keyAccess

/// Types of a value's data.
namespace valueTypes {
inline constexpr I4 text = 1;
inline constexpr I4 binary = 3;
inline constexpr I4 dword = 4;
}  // namespace valueTypes

/// The registry, of `advapi32`. Results are status codes, 0 for success.
struct Registry : Port<Registry> {
    virtual I4 RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened) {
        return missingEntryPoint(key, subKey, options, access, opened);
    }
    /// Opens the key, creating it with any missing parents.
    virtual I4 RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) {
        return missingEntryPoint(key, subKey, created);
    }
    virtual I4 RegSetValueExA(I4 key, const AnsiText& name, I4 reserved, I4 type,
                              std::span<const std::byte> data) {
        return missingEntryPoint(key, name, reserved, type, data);
    }
    /// Size is the room in data when it comes in and the bytes of the value when it goes out; 234 tells that
    /// the room is too small. A text of at least one byte is followed by a NUL where there is room; one that
    /// is asked for by type 1 doesn't fit without it.
    virtual I4 RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data, I4& size) {
        return missingEntryPoint(key, name, type, data, size);
    }
    /// Deletes a key that has no subkeys, with its values.
    virtual I4 RegDeleteKeyA(I4 key, const AnsiText& subKey) { return missingEntryPoint(key, subKey); }
    virtual I4 RegCloseKey(I4 key) { return missingEntryPoint(key); }
};

Registry& homeRegistry();

}  // namespace tovera
