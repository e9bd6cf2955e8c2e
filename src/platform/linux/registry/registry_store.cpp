#include "platform/linux/registry/registry_store.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <limits>
#include <utility>
#include <vector>

#include "platform/linux/registry/registry_status.h"
#include "platform/registry.h"

namespace tovera {
namespace {

// Three kinds of entries: a key itself and its values, which stand together so that a read finds them in one
// place, and behind them the list of its subkeys.
enum class Kind : std::uint8_t { Key = '.', Value = 'V', Subkey = 'k' };

using EntryKey = std::array<std::byte, 2 * sizeof(NameId) + 1>;
constexpr std::size_t beginningSize = sizeof(NameId) + 1;

EntryKey entryKey(const NameId& key, Kind kind, const NameId& own = {}) {
    EntryKey entry{};
    std::memcpy(entry.data(), &key, sizeof key);
    entry[sizeof key] = static_cast<std::byte>(kind);
    std::memcpy(entry.data() + beginningSize, &own, sizeof own);
    return entry;
}

EntryKey keyEntry(const KeyPlace& key) {
    return entryKey(key.id, Kind::Key);
}

/// In the list of the parent's subkeys.
EntryKey listEntry(const KeyPlace& key) {
    return entryKey(key.parent, Kind::Subkey, key.id);
}

/// What all entries of a kind that belong to a key begin with.
Bytes beginningOf(const EntryKey& entry) {
    return Bytes(entry).first(beginningSize);
}

/// In front of an entry's name and data.
struct EntryHead {
    std::uint32_t checksum;  // of all that follows it
    std::int32_t type;
    std::uint32_t nameSize;
};

struct Entry {
    I4 type;
    std::string_view name;
    Bytes data;
};

std::uint32_t checksumOf(Bytes bytes) {
    std::uint64_t sum = bytes.size() + 1;
    const auto mix = [&](Bytes part) {
        std::uint64_t word = 0;
        std::memcpy(&word, part.data(), part.size());
        sum = std::rotl((sum ^ word) * 0x9E3779B97F4A7C15, 29);
    };
    while (bytes.size() >= sizeof(std::uint64_t)) {
        mix(bytes.first(sizeof(std::uint64_t)));
        bytes = bytes.subspan(sizeof(std::uint64_t));
    }
    if (!bytes.empty()) mix(bytes);
    return static_cast<std::uint32_t>(sum ^ (sum >> 32));
}

std::vector<std::byte> packed(I4 type, std::string_view name, Bytes data) {
    EntryHead head{0, type, static_cast<std::uint32_t>(name.size())};
    std::vector<std::byte> entry(sizeof head + name.size() + data.size());
    std::memcpy(entry.data(), &head, sizeof head);
    std::ranges::copy(std::as_bytes(std::span(name)), entry.begin() + sizeof head);
    std::ranges::copy(data, entry.end() - static_cast<std::ptrdiff_t>(data.size()));
    head.checksum = checksumOf(Bytes(entry).subspan(sizeof head.checksum));
    std::memcpy(entry.data(), &head.checksum, sizeof head.checksum);
    return entry;
}

Entry unpacked(Bytes entry) {
    EntryHead head{};
    if (entry.size() < sizeof head) throw StoreFailure::damage();
    std::memcpy(&head, entry.data(), sizeof head);
    const auto content = entry.subspan(sizeof head);
    if (head.checksum != checksumOf(entry.subspan(sizeof head.checksum)) || head.nameSize > content.size()) {
        throw StoreFailure::damage();
    }
    return {head.type,
            {reinterpret_cast<const char*>(content.data()), head.nameSize},
            content.subspan(head.nameSize)};
}

struct FixedKey {
    NameId id;
    std::string_view name;
};

/// The keys that are there from the start, as on every Windows.
const FixedKey* fixedKey(const NameId& id) {
    static const auto fixed = [] {
        std::vector<FixedKey> keys;
        const auto add = [&](unsigned root, std::string_view path) {
            auto parent = rootId(root);
            for (const auto name : namesOf(path)) keys.push_back({parent = idWithin(parent, name), name});
        };
        add(1, "Control Panel");
        add(1, "Environment");
        add(1, "Software\\Classes");
        add(1, "Software\\Microsoft");
        add(1, R"(Software\ODBC\ODBC.INI\ODBC Data Sources)");
        add(2, "Software\\Classes");
        add(2, "Software\\Microsoft");
        add(2, R"(Software\ODBC\ODBC.INI\ODBC Data Sources)");
        add(2, "System");
        add(3, ".DEFAULT");
        return keys;
    }();
    const auto found = std::ranges::find(fixed, id, &FixedKey::id);
    return found == fixed.end() ? nullptr : &*found;
}

bool isTooLong(std::size_t length) {
    constexpr std::size_t longestKeyName = 255;
    return length > longestKeyName;
}

bool exists(const StoreTransaction& transaction, const KeyPlace& key) {
    return key.isRoot() || transaction.get(keyEntry(key)) || fixedKey(key.id);
}

/// The name that an entry was first given; nothing for no entry, or for one that is damaged.
std::optional<std::string> givenName(const std::optional<Bytes>& entry) try {
    if (!entry) return std::nullopt;
    return std::string(unpacked(*entry).name);
} catch (const StoreFailure&) {
    return std::nullopt;
}

/// Stores an entry under its first name. Two names may share an identifier in theory: the second is refused.
bool put(LmdbStore& store, StoreTransaction& transaction, const EntryKey& key, I4 type, std::string_view name,
         Bytes data) {
    const auto present = transaction.get(key);
    const auto given = givenName(present);
    if (present && !given) store.keepDamaged();
    if (given && !sameFolded(*given, name)) return false;
    transaction.put(key, packed(type, given ? *given : name, data));
    return true;
}

std::string nameOf(const StoreTransaction& transaction, const KeyPlace& key) {
    if (const auto* fixed = fixedKey(key.id)) return std::string(fixed->name);
    return givenName(transaction.get(keyEntry(key))).value_or(std::string());
}

bool isTextType(I4 type) {
    constexpr I4 expandableText = 2;
    constexpr I4 listOfTexts = 7;
    return type == valueTypes::text || type == expandableText || type == listOfTexts;
}

/// A text is stored as it was handed over, mostly without its NUL. It is given with it, as the platform
/// stores texts; only as a number of four bytes it goes without, where there is no room.
I4 copyData(const Entry& entry, I4 expectedType, std::span<std::byte> room, I4& size) {
    const auto available = std::min(room.size(), static_cast<std::size_t>(std::max(size, I4{0})));
    const bool lacksNul = isTextType(entry.type) && !entry.data.empty() && entry.data.back() != std::byte{0};
    const auto given = entry.data.size() + (lacksNul && expectedType != valueTypes::dword ? 1 : 0);
    size = static_cast<I4>(given);
    if (given > available) return registryStatus::moreData;
    std::ranges::copy(entry.data, room.begin());
    if (lacksNul && entry.data.size() < available) room[entry.data.size()] = std::byte{0};
    return registryStatus::success;
}

}  // namespace

KeyPlace rootPlace(unsigned root) {
    return {{}, rootId(root)};
}

KeyPlace placeBelow(const KeyPlace& key, std::string_view path) {
    auto place = key;
    for (const auto name : namesOf(path)) place = {place.id, idWithin(place.id, name)};
    return place;
}

I4 RegistryStore::findKey(const KeyPlace& key) {
    const auto status = store_.read([&](StoreTransaction& transaction) {
        return exists(transaction, key) ? registryStatus::success : registryStatus::notFound;
    });
    if (status == registryStatus::notFound) store_.tellOfEarlierLoss();
    return status;
}

I4 RegistryStore::createKey(const KeyPlace& from, std::string_view path) {
    return store_.write([&](StoreTransaction& transaction) {
        if (!exists(transaction, from)) return registryStatus::keyDeleted;
        auto place = from;
        const auto names = namesOf(path);
        if (std::ranges::any_of(names, isTooLong, &std::string_view::size))
            return registryStatus::invalidParameter;
        for (const auto name : names) {
            place = {place.id, idWithin(place.id, name)};
            if (exists(transaction, place)) continue;
            if (!put(store_, transaction, keyEntry(place), 0, name, {})) return registryStatus::cannotWrite;
            transaction.put(listEntry(place), {});
        }
        return registryStatus::success;
    });
}

I4 RegistryStore::deleteKey(const KeyPlace& key, const Removing& removing) {
    if (key.isRoot() || fixedKey(key.id)) return registryStatus::accessDenied;
    return store_.write([&](StoreTransaction& transaction) {
        if (!exists(transaction, key)) return registryStatus::notFound;
        if (transaction.hasBeginning(beginningOf(entryKey(key.id, Kind::Subkey)))) {
            return registryStatus::accessDenied;
        }
        const auto name = nameOf(transaction, key);
        transaction.removeBeginning(beginningOf(entryKey(key.id, Kind::Value)));
        transaction.remove(keyEntry(key));
        transaction.remove(listEntry(key));
        return removing ? removing(name) : registryStatus::success;
    });
}

I4 RegistryStore::setValue(const KeyPlace& key, std::string_view name, I4 type, Bytes data,
                           const Writing& writing) {
    constexpr std::size_t most = std::numeric_limits<I4>::max();
    if (data.size() > most || name.size() > most) return registryStatus::invalidParameter;
    const auto valueKey = entryKey(key.id, Kind::Value, idWithin(key.id, name));
    return store_.write([&](StoreTransaction& transaction) {
        if (!exists(transaction, key)) return registryStatus::keyDeleted;
        if (!put(store_, transaction, valueKey, type, name, data)) return registryStatus::cannotWrite;
        return writing ? writing(nameOf(transaction, key)) : registryStatus::success;
    });
}

I4 RegistryStore::queryValue(const KeyPlace& key, std::string_view name, I4& type, std::span<std::byte> room,
                             I4& size) {
    const auto valueKey = entryKey(key.id, Kind::Value, idWithin(key.id, name));
    const auto status = store_.read([&](StoreTransaction& transaction) {
        const auto found = transaction.get(valueKey);
        if (!found) {
            return exists(transaction, key) ? registryStatus::notFound : registryStatus::keyDeleted;
        }
        const auto entry = unpacked(*found);
        if (!sameFolded(entry.name, name)) return registryStatus::notFound;
        return copyData(entry, std::exchange(type, entry.type), room, size);
    });
    if (status == registryStatus::notFound) store_.tellOfEarlierLoss();
    return status;
}

}  // namespace tovera
