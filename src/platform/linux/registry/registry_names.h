#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

// Names of keys and values, ANSI bytes that match without regard to case, and the identifiers that stand for
// them in the store. An identifier is told by the parent's and the name, so that a path of any depth is found
// with one look, and a name of any length takes 16 bytes in an index.
namespace tovera {

struct NameId {
    std::uint64_t high = 0;
    std::uint64_t low = 0;
    friend bool operator==(const NameId&, const NameId&) = default;
};

/// The letter that stands for both cases. It is part of what the store keeps, and so the same for ever,
/// whatever the locale.
char foldedCase(char byte);

/// Whether two names are the same but for their case.
bool sameFolded(std::string_view a, std::string_view b);

/// The identifier of a key or value with this name in the key with that identifier.
NameId idWithin(const NameId& parent, std::string_view name);

/// The identifier of one of the root keys, by its handle's last digit.
NameId rootId(unsigned root);

/// The names of a path, in their order; separators in a row count as one.
std::vector<std::string_view> namesOf(std::string_view path);

}  // namespace tovera
