#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/linux/registry/lmdb_store.h"
#include "platform/linux/registry/registry_names.h"

namespace tovera {

/// Where a key is in the tree: a root has no parent.
struct KeyPlace {
    NameId parent;
    NameId id;
    bool isRoot() const { return parent == NameId{}; }
    friend bool operator==(const KeyPlace&, const KeyPlace&) = default;
};

KeyPlace rootPlace(unsigned root);
/// The place of the key with this path below another, whether there is one or not.
KeyPlace placeBelow(const KeyPlace& key, std::string_view path);

/// The user's registry: a tree of keys that hold values of any type and size. Names match without regard to
/// case and stay as they were first written. All functions give a status of the registry.
class RegistryStore {
  public:
    explicit RegistryStore(std::string folder) : store_(std::move(folder)) {}

    I4 findKey(const KeyPlace& key);
    /// Makes the key with all that is missing above it.
    I4 createKey(const KeyPlace& from, std::string_view path);
    /// Removes a key that has no subkeys, with its values. Before that becomes final, removing runs with the
    /// key's name; its status counts.
    using Removing = std::function<I4(std::string_view keyName)>;
    I4 deleteKey(const KeyPlace& key, const Removing& removing = {});

    /// Before a value becomes final, writing runs with the key's name; its status counts.
    using Writing = std::function<I4(std::string_view keyName)>;
    I4 setValue(const KeyPlace& key, std::string_view name, I4 type, Bytes data, const Writing& writing = {});
    /// Copies the value when there is room for it: 234 when there is not, with the size needed. Type is the
    /// expected one when it comes in and the stored one when it goes out.
    I4 queryValue(const KeyPlace& key, std::string_view name, I4& type, std::span<std::byte> room, I4& size);

  private:
    LmdbStore store_;
};

}  // namespace tovera
