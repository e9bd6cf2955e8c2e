#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/linux/profiles/profile_text.h"

// Profile (INI) files of the system's own paths, opened anew at each call. Texts are ANSI bytes. A write
// happens whole or not at all and is on the disk when it returns; the writes of several processes happen one
// after the other.
namespace tovera {

/// The value of an entry as it stands, or nothing. A file that can't be read is one without entries.
std::optional<std::string> readProfileEntry(const std::string& path, std::string_view section,
                                            std::string_view key);

/// The sections of a file, or the keys of a section, each with a NUL behind it.
std::string readProfileSections(const std::string& path);
std::string readProfileKeys(const std::string& path, std::string_view section);

/// True when the file is as it should be, all writes made. A missing file is made for a value, a missing
/// folder isn't. The writes are of different entries.
bool writeProfileEntries(const std::string& path, std::span<const EntryWrite> writes);
bool writeProfileEntry(const std::string& path, std::string_view section, std::string_view key,
                       std::string_view value);
bool removeProfileEntry(const std::string& path, std::string_view section, std::string_view key);
bool removeProfileSection(const std::string& path, std::string_view section);

}  // namespace tovera
