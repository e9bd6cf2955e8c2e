#pragma once

#include <memory>

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Profile (INI) files, of `kernel32`. A buffer's length is the size that goes with it.
struct Profiles : Port<Profiles> {
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

    /// A twin that keeps the writes to entries until its end, when they reach the disk together. Each of them
    /// succeeds at once; what fails at the end isn't told. None where single writes cost next to nothing.
    virtual std::unique_ptr<Profiles> keepingWrites() { return nullptr; }
};

Profiles& homeProfiles();

}  // namespace tovera
