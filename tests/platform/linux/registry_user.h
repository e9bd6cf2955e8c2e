#pragma once

#include <string>

#include "platform/linux/advapi32.h"
#include "platform/linux/entry_point.h"
#include "platform/linux/registry_status.h"

namespace tovera::testing {

/// Whether this system has what the store is made with.
inline bool hasStore() {
#if __has_include(<lmdb.h>)
    return SharedLibrary("liblmdb.so.0").isPresent();
#else
    return false;
#endif
}

/// The registry as a caller of the entry points uses it: opens a key, does one thing, closes the key. Each
/// gives the status of the first call that failed.
class RegistryUser {
  public:
    explicit RegistryUser(Advapi32& registry, I4 root = rootKeys::currentUser)
        : registry_(registry), root_(root) {}

    I4 create(const std::string& path) {
        I4 key = 0;
        const auto status = registry_.RegCreateKeyA(root_, {path}, key);
        if (status == 0) registry_.RegCloseKey(key);
        return status;
    }
    I4 write(const std::string& path, const std::string& name, const std::string& data,
             I4 type = valueTypes::binary) {
        return onKey(path, keyAccess::write, [&](I4 key) {
            return registry_.RegSetValueExA(key, {name}, 0, type, std::as_bytes(std::span(data)));
        });
    }
    I4 read(const std::string& path, const std::string& name, std::string& data) {
        return onKey(path, keyAccess::read, [&](I4 key) {
            I4 type = valueTypes::binary;
            I4 size = 0;
            const auto status = registry_.RegQueryValueExA(key, {name}, type, {}, size);
            if (status != registryStatus::moreData) return status;
            data.resize(static_cast<std::size_t>(size));
            type = valueTypes::binary;
            return registry_.RegQueryValueExA(key, {name}, type, std::as_writable_bytes(std::span(data)),
                                              size);
        });
    }
    I4 remove(const std::string& path) { return registry_.RegDeleteKeyA(root_, {path}); }
    bool has(const std::string& path) {
        return onKey(path, keyAccess::read, [](I4) { return 0; }) == 0;
    }

  private:
    template <class Work>
    I4 onKey(const std::string& path, I4 access, Work&& work) {
        I4 key = 0;
        auto status = registry_.RegOpenKeyExA(root_, {path}, 0, access, key);
        if (status != 0) return status;
        status = work(key);
        registry_.RegCloseKey(key);
        return status;
    }

    Advapi32& registry_;
    I4 root_;
};

}  // namespace tovera::testing
