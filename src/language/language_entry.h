#pragma once

#include "frame/component.h"
#include "platform/platform.h"
#include "platform/profiles.h"

// The entries of a language file, a profile file: how every part of the class reads and writes one.
namespace tovera {

/// The entry's value, at most 254 characters of it, or the default where it is missing.
Bstr LireEntreeLangue(Platform& platform, Bstr file, Bstr section, Bstr key, Bstr defaultValue);

/// Writes an entry; whether that worked is not told. The file, and a value that is a variable, come back
/// through the ANSI code page. A null value removes the entry.
template <class Value>
void writeLanguageEntry(Platform& platform, const Bstr& section, const Bstr& key, Value& value, Bstr& file) {
    platform.call(&Profiles::WritePrivateProfileStringA, section, key, value, file);
}

/// Creates the folder of a file when it is missing, one level only. A failing step is ignored.
void createMissingFolder(FailuresIgnored& step, Services& services, Bstr& file);

}  // namespace tovera
