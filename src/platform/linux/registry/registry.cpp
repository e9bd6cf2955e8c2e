#include "platform/linux/registry/registry.h"

#include <mutex>
#include <optional>
#include <vector>

#include "platform/linux/files/data_folder.h"
#include "platform/linux/registry/odbc_mirror.h"
#include "platform/linux/registry/registry_status.h"
#include "platform/linux/registry/registry_store.h"

namespace tovera {
namespace {

using namespace registryStatus;

constexpr I4 allAccess = 0xF003F;
constexpr I4 queryAccess = 1;
constexpr I4 setAccess = 2;
constexpr I4 createAccess = 4;
constexpr I4 handleStep = 4;

enum Root : unsigned { classes = 0, currentUser = 1, localMachine = 2, rootCount = 7 };

std::optional<unsigned> rootOf(I4 handle) {
    const auto number = static_cast<std::uint32_t>(handle) - 0x80000000U;
    return number < rootCount ? std::optional<unsigned>(number) : std::nullopt;
}

I4 checkPath(const AnsiText& subKey) {
    return subKey.terminated().starts_with('\\') ? badPathName : success;
}

/// A key that isn't a data source itself but below one, or a source whose name has backslashes.
bool isDeep(std::string_view dataSource) {
    return dataSource.find('\\') != std::string_view::npos;
}

/// The registry on a store of the user's own. All seven roots are the user's; HKEY_CLASSES_ROOT shows the
/// classes of HKEY_CURRENT_USER in front of those of HKEY_LOCAL_MACHINE.
class LinuxRegistry : public Registry {
  public:
    explicit LinuxRegistry(std::string registryFolder) : store_(std::move(registryFolder)) {}

    I4 RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened) override;
    I4 RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) override;
    I4 RegSetValueExA(I4 key, const AnsiText& name, I4 reserved, I4 type,
                      std::span<const std::byte> data) override;
    I4 RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data, I4& size) override;
    I4 RegDeleteKeyA(I4 key, const AnsiText& subKey) override;
    I4 RegCloseKey(I4 key) override;

  private:
    struct OpenKey {
        KeyPlace place;
        /// Of a class key: the same key of the machine, which shows through where the user has nothing.
        std::optional<KeyPlace> behind;
        I4 access = 0;
        bool isOpen = false;
        std::string dataSource;  ///< the name, for a key of the user's data sources
    };

    std::optional<OpenKey> keyOf(I4 handle);
    static std::string dataSourceAt(I4 handle, const OpenKey& from, std::string_view path);
    I4 find(I4 handle, const OpenKey& key, const AnsiText& subKey, OpenKey& found);
    I4 handleFor(OpenKey key);

    RegistryStore store_;
    std::mutex mutex_;
    std::vector<OpenKey> keys_;
    std::vector<std::size_t> freePlaces_;
};

std::optional<LinuxRegistry::OpenKey> LinuxRegistry::keyOf(I4 handle) {
    if (const auto root = rootOf(handle)) {
        if (*root != classes) return OpenKey{rootPlace(*root), {}, allAccess, true, {}};
        static const auto userClasses = placeBelow(rootPlace(currentUser), "Software\\Classes");
        static const auto machineClasses = placeBelow(rootPlace(localMachine), "Software\\Classes");
        return OpenKey{userClasses, machineClasses, allAccess, true, {}};
    }
    const std::lock_guard guard(mutex_);
    const auto index = static_cast<std::size_t>(handle / handleStep - 1);
    const bool isOpen = handle > 0 && handle % handleStep == 0 && index < keys_.size() && keys_[index].isOpen;
    return isOpen ? std::optional<OpenKey>(keys_[index]) : std::nullopt;
}

I4 LinuxRegistry::handleFor(OpenKey key) {
    key.isOpen = true;
    const std::lock_guard guard(mutex_);
    if (freePlaces_.empty()) {
        freePlaces_.push_back(keys_.size());
        keys_.emplace_back();
    }
    const auto index = freePlaces_.back();
    freePlaces_.pop_back();
    keys_[index] = key;
    return static_cast<I4>(index + 1) * handleStep;
}

/// The name for a key of the user's data sources that a path leads to; empty for all other keys.
std::string LinuxRegistry::dataSourceAt(I4 handle, const OpenKey& from, std::string_view path) {
    if (handle == rootKeys::currentUser) return std::string(dataSourceIn(path));
    if (from.dataSource.empty() || path.empty()) return from.dataSource;
    return from.dataSource + '\\' + std::string(path);
}

/// The key below another; of a class key the user's, with the machine's behind it, or the machine's alone.
I4 LinuxRegistry::find(I4 handle, const OpenKey& key, const AnsiText& subKey, OpenKey& found) {
    const auto path = subKey.terminated();
    found = {placeBelow(key.place, path), {}, 0, true, dataSourceAt(handle, key, path)};
    const auto status = store_.findKey(found.place);
    if (!key.behind || (status != success && status != notFound)) return status;
    const auto behind = placeBelow(*key.behind, path);
    const auto statusBehind = store_.findKey(behind);
    if (statusBehind != success) return status;
    if (status == success) {
        found.behind = behind;
    } else {
        found.place = behind;
    }
    return success;
}

I4 LinuxRegistry::RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 /*options*/, I4 access, I4& opened) {
    const auto from = keyOf(key);
    if (!from) return invalidHandle;
    if (const auto status = checkPath(subKey); status != success) return status;
    OpenKey found;
    if (const auto status = find(key, *from, subKey, found); status != success) return status;
    found.access = access;
    opened = handleFor(found);
    return success;
}

I4 LinuxRegistry::RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) {
    const auto from = keyOf(key);
    if (!from) return invalidHandle;
    if (const auto status = checkPath(subKey); status != success) return status;
    OpenKey found;
    auto status = find(key, *from, subKey, found);
    if (status == notFound) {
        if (!(from->access & createAccess)) return accessDenied;
        const auto& maker = from->behind.value_or(from->place);
        found.place = placeBelow(maker, subKey.terminated());
        status = store_.createKey(maker, subKey.terminated());
    }
    if (status != success) return status;
    found.access = allAccess;
    created = handleFor(found);
    return success;
}

I4 LinuxRegistry::RegSetValueExA(I4 key, const AnsiText& name, I4 /*reserved*/, I4 type,
                                 std::span<const std::byte> data) {
    const auto open = keyOf(key);
    if (!open) return invalidHandle;
    if (!(open->access & setAccess)) return accessDenied;
    const auto value = name.terminated();
    const auto& source = open->dataSource;
    if (source.empty()) return store_.setValue(open->place, value, type, data);
    return store_.setValue(open->place, value, type, data, [&](std::string_view keyName) {
        return mirrorDataSource(isDeep(source) ? source : keyName, value, type, data);
    });
}

I4 LinuxRegistry::RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data,
                                   I4& size) {
    const auto open = keyOf(key);
    if (!open) return invalidHandle;
    if (!(open->access & queryAccess)) return accessDenied;
    const auto status = store_.queryValue(open->place, name.terminated(), type, data, size);
    if (status != notFound || !open->behind) return status;
    return store_.queryValue(*open->behind, name.terminated(), type, data, size);
}

I4 LinuxRegistry::RegDeleteKeyA(I4 key, const AnsiText& subKey) {
    const auto from = keyOf(key);
    if (!from) return invalidHandle;
    if (subKey.isNull) return invalidParameter;
    if (const auto status = checkPath(subKey); status != success) return status;
    OpenKey found;
    if (const auto status = find(key, *from, subKey, found); status != success) return status;
    const auto& source = found.dataSource;
    if (source.empty()) return store_.deleteKey(found.place);
    return store_.deleteKey(found.place, [&](std::string_view keyName) {
        return forgetDataSource(isDeep(source) ? source : keyName);
    });
}

I4 LinuxRegistry::RegCloseKey(I4 key) {
    if (rootOf(key)) return success;
    if (!keyOf(key)) return invalidHandle;
    const std::lock_guard guard(mutex_);
    const auto index = static_cast<std::size_t>(key / handleStep - 1);
    keys_[index].isOpen = false;
    freePlaces_.push_back(index);
    return success;
}

}  // namespace

std::unique_ptr<Registry> makeRegistry(std::string folder) {
    return std::make_unique<LinuxRegistry>(std::move(folder));
}

Registry& homeRegistry() {
    static LinuxRegistry port(dataFolder() + "/registry");
    return port;
}

}  // namespace tovera
