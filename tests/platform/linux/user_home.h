#pragma once

#include "platform/linux/advapi32.h"
#include "platform/linux/entry_point.h"
#include "platform/linux/registry_status.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::testing {

/// Whether this system has what the store is made with.
inline bool hasStore() {
#if __has_include(<lmdb.h>)
    return SharedLibrary("liblmdb.so.0").isPresent();
#else
    return false;
#endif
}

/// The registry, with an eye on what only other platforms would punish.
struct WatchedRegistry : LinuxAdvapi32 {
    using LinuxAdvapi32::LinuxAdvapi32;
    I4 RegQueryValueExA(I4 key, const AnsiText& name, I4& type, std::span<std::byte> data,
                        I4& size) override {
        EXPECT_EQ(static_cast<std::size_t>(size), data.size()) << "the size of another buffer";
        return LinuxAdvapi32::RegQueryValueExA(key, name, type, data, size);
    }
    I4 RegDeleteKeyA(I4 key, const AnsiText& subKey) override {
        ++deletions;
        return LinuxAdvapi32::RegDeleteKeyA(key, subKey);
    }
    int deletions = 0;
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
            if (status != registryStatus::moreData) return status;
            data.resize(static_cast<std::size_t>(size));
            const auto room = std::as_writable_bytes(std::span(data));
            type = valueTypes::binary;
            return registry.RegQueryValueExA(key, {name}, type, room, size);
        });
    }
    bool reads(const std::string& path, const std::string& name, const std::string& expected) {
        return read(path, name) == registryStatus::success && data == expected;
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

/// The Linux home with a data folder, a registry and an ODBC file of the test's own. Its message boxes are
/// kept.
struct UserHome : ::testing::Test {
    UserHome() {
        ON_CALL(services, createObject).WillByDefault([](auto id) {
            return home().services.createObject(id);
        });
        setenv("ODBCINI", odbcFile.c_str(), 1);
    }
    ~UserHome() override { unsetenv("ODBCINI"); }

    UserFolder files;
    ::testing::NiceMock<TestServices> services;
    RegistryUser user{files.onC("registry")};
    Platform platform{services, home().user32, home().kernel32, home().files, user.registry, home().odbc32};
    const std::string odbcFile = files.onC("odbc.ini");
};

/// For tests that need a registry.
struct UserHomeWithStore : UserHome {
    void SetUp() override {
        if (!hasStore()) GTEST_SKIP() << "LMDB isn't installed";
    }
};

}  // namespace tovera::testing
