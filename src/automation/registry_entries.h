#pragma once

#include <optional>
#include <string>
#include <vector>

namespace tovera {

/// Whose an entry is. A 64-bit system keeps classes and interfaces apart by bitness. It shows the rest to
/// both, the type libraries not on all systems.
enum class Owner {
    System,       ///< a parent that other components have their keys below as well
    ThisBitness,  ///< the component of this bitness alone
    Names,        ///< of both bitnesses: the ProgIDs
    Library,      ///< of both bitnesses: the type library but for its file
};

/// A key, or one of its texts. The texts are UTF-16 as the system takes them.
struct RegistryEntry {
    Owner owner = Owner::ThisBitness;
    std::wstring key;
    std::wstring name;                 ///< empty for the key's own text
    std::optional<std::wstring> text;  ///< nothing for a key alone
};

/// What a registration consists of, below the root of a user or of the machine: each key stands behind its
/// parent.
std::vector<RegistryEntry> registryEntries();

/// The key of a class, which is there as long as the component of the reader's bitness is registered.
std::wstring keyOfFirstClass();

/// The key of the type library's file for the other bitness, there as long as that is registered.
std::wstring keyOfOtherLibrary();

}  // namespace tovera
