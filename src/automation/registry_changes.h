#pragma once

#include <vector>

#include "automation/registry_entries.h"
#include "platform/windows/system.h"

namespace tovera {

/// Entries being written below one root. Unless they are kept, the end of this object takes them back, the
/// last one first, so that keys and texts are again what they were.
class RegistryChanges {
  public:
    explicit RegistryChanges(HKEY root) : root_(root) {}
    RegistryChanges(const RegistryChanges&) = delete;
    RegistryChanges& operator=(const RegistryChanges&) = delete;
    ~RegistryChanges();

    LSTATUS write(const RegistryEntry& entry);
    void keep() { undo_.clear(); }

  private:
    /// What stood under a name, of whatever type.
    struct Held {
        DWORD type = REG_NONE;
        std::vector<BYTE> data;
    };
    struct Undo {
        RegistryEntry entry;
        bool keyMade = false;
        bool textWritten = false;
        std::optional<Held> before;
    };
    static LSTATUS read(HKEY key, const std::wstring& name, std::optional<Held>& found);
    void takeBack(const Undo& undo) const;

    HKEY root_;
    std::vector<Undo> undo_;
};

/// Removes a text, and its key once that is empty. One that isn't there is no failure.
LSTATUS removeEntry(HKEY root, const RegistryEntry& entry);

/// Whether a key is there, in the view of this bitness or, with its flag, in another.
bool hasKey(HKEY root, const std::wstring& key, REGSAM view = 0);

}  // namespace tovera
