#pragma once

#include "own_home.h"
#include "platform/registry.h"
#include "support/test_platform.h"

namespace tovera::testing {

/// The registry, with an eye on what only other platforms would punish.
struct WatchedRegistry : Registry {
    explicit WatchedRegistry(const std::string& store) : own(store) {}
    I4 RegOpenKeyExA(I4 key, const AnsiText& subKey, I4 options, I4 access, I4& opened) override {
        const auto status = own.port().RegOpenKeyExA(key, subKey, options, access, opened);
        leftOpen += status == 0 ? 1 : 0;
        return status;
    }
    I4 RegCreateKeyA(I4 key, const AnsiText& subKey, I4& created) override {
        const auto status = own.port().RegCreateKeyA(key, subKey, created);
        leftOpen += status == 0 ? 1 : 0;
        return status;
    }
    I4 RegSetValueExA(I4 key, const AnsiText& name, I4 reserved, I4 type,
                      std::span<const std::byte> data) override {
        return own.port().RegSetValueExA(key, name, reserved, type, data);
    }
    I4 RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data,
                        I4& size) override {
        EXPECT_EQ(static_cast<std::size_t>(size), data.size()) << "the size of another buffer";
        return own.port().RegQueryValueExA(key, name, type, data, size);
    }
    I4 RegDeleteKeyA(I4 key, const AnsiText& subKey) override {
        ++deletions;
        return own.port().RegDeleteKeyA(key, subKey);
    }
    I4 RegCloseKey(I4 key) override {
        --leftOpen;
        return own.port().RegCloseKey(key);
    }
    OwnRegistry own;
    int deletions = 0;
    int leftOpen = 0;  ///< keys; below 0 when one was closed that wasn't opened
};

/// A registry of its own on a store, as another process would have it, and a user of its entry points: opens
/// a key below a root, does one thing, closes the key. Each gives the status of the first call that failed.
struct RegistryUser {
    explicit RegistryUser(const std::string& store) : registry(store) {}

    I4 create(const std::string& path) {
        I4 key = 0;
        const auto status = registry.RegCreateKeyA(root, {path}, key);
        if (status == 0) registry.RegCloseKey(key);
        return status;
    }
    I4 write(const std::string& path, const std::string& name, const std::string& data,
             I4 type = valueTypes::binary) {
        return onKey(path, keyAccess::write, [&](I4 key) {
            return registry.RegSetValueExA(key, {name}, 0, type, std::as_bytes(std::span(data)));
        });
    }
    /// Leaves the data, or nothing, and its type.
    I4 read(const std::string& path, const std::string& name) {
        data.clear();
        return onKey(path, keyAccess::read, [&](I4 key) {
            I4 size = 0;
            type = valueTypes::binary;
            const auto status = registry.RegQueryValueExA(key, {name}, type, {}, size);
            if (status != 0 && status != 234) return status;
            data.resize(static_cast<std::size_t>(size));
            const auto room = std::as_writable_bytes(std::span(data));
            type = valueTypes::binary;
            return registry.RegQueryValueExA(key, {name}, type, room, size);
        });
    }
    bool reads(const std::string& path, const std::string& name, const std::string& expected) {
        if (read(path, name) != 0) return false;
        if (type == valueTypes::text && data.ends_with('\0')) data.pop_back();
        return data == expected;
    }
    I4 remove(const std::string& path) { return registry.RegDeleteKeyA(root, {path}); }
    bool has(const std::string& path) {
        return onKey(path, keyAccess::read, [](I4) { return 0; }) == 0;
    }

    WatchedRegistry registry;
    I4 root = rootKeys::currentUser;
    std::string data;
    I4 type = 0;

  private:
    template <class Work>
    I4 onKey(const std::string& path, I4 access, Work&& work) {
        I4 key = 0;
        auto status = registry.RegOpenKeyExA(root, {path}, 0, access, key);
        if (status != 0) return status;
        status = work(key);
        registry.RegCloseKey(key);
        return status;
    }
};

/// The home with files and a registry of the test's own. Its message boxes are kept.
struct UserHome : ::testing::Test {
    UserHome() {
        ON_CALL(services, createObject).WillByDefault([](auto id) {
            return home().services.createObject(id);
        });
    }

    UserFolder files;
    ::testing::NiceMock<TestServices> services;
    RegistryUser user{files.onC("registry")};
    Platform platform = home().with(services).with(user.registry);
};

/// For tests that need a registry.
struct UserHomeWithStore : UserHome {
    void SetUp() override {
        if (!hasRegistry()) GTEST_SKIP() << "LMDB isn't installed";
    }
};

}  // namespace tovera::testing
