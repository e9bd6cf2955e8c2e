#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovera {

/// A key, or one of its texts. The texts are UTF-16 as the system takes them.
struct RegistryEntry {
    std::wstring key;
    std::wstring name;                 ///< empty for the key's own text
    std::optional<std::wstring> text;  ///< nothing for a key alone
};

/// What a registration consists of, below the root of a user or of the machine: each key stands behind its
/// parent, the shared ones included.
std::vector<RegistryEntry> registryEntries();

}  // namespace tovera
