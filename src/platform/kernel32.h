#pragma once

#include "frame/crossing.h"
#include "platform/missing.h"

namespace tovera {

/// The entry points of `kernel32` that the classes call. A buffer's length is the size that goes with it.
struct Kernel32 {
    virtual ~Kernel32() = default;

    /// Writes an entry of a profile file. A null value removes the key, a null key the section. Nonzero on
    /// success.
    virtual I4 WritePrivateProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value,
                                          const AnsiText& file) {
        return missingEntryPoint(section, key, value, file);
    }

    /// Reads an entry of a profile file, or the default where it is missing; a null key gives the section's
    /// keys, a null section the sections. Returns the characters copied, without the NUL.
    virtual I4 GetPrivateProfileStringA(const AnsiText& section, const AnsiText& key,
                                        const AnsiText& defaultValue, AnsiText& buffer,
                                        const AnsiText& file) {
        return missingEntryPoint(section, key, defaultValue, buffer, file);
    }

    /// The same on WIN.INI.
    virtual I4 WriteProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& value) {
        return missingEntryPoint(section, key, value);
    }
    virtual I4 GetProfileStringA(const AnsiText& section, const AnsiText& key, const AnsiText& defaultValue,
                                 AnsiText& buffer) {
        return missingEntryPoint(section, key, defaultValue, buffer);
    }

    /// A folder or a name into a buffer. Each returns the length without the NUL; the size needed, with the
    /// buffer left as it was, when that is too small; 0 on failure.
    virtual I4 GetSystemDirectoryA(AnsiText& buffer) { return missingEntryPoint(buffer); }
    virtual I4 GetWindowsDirectoryA(AnsiText& buffer) { return missingEntryPoint(buffer); }
    virtual I4 GetLongPathNameA(const AnsiText& shortName, AnsiText& buffer) {
        return missingEntryPoint(shortName, buffer);
    }
    virtual I4 GetShortPathNameA(const AnsiText& longName, AnsiText& buffer) {
        return missingEntryPoint(longName, buffer);
    }
};

}  // namespace tovera
