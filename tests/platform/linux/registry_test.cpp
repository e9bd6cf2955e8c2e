#include <gtest/gtest.h>

#include "platform/linux/registry_user.h"
#include "platform/linux/temporary_folder.h"

namespace tovera::testing {
namespace {

using namespace registryStatus;

struct Registry : ::testing::Test {
    TemporaryFolder folder;
    LinuxAdvapi32 registry{folder / "registry"};
    RegistryUser user{registry};

    void SetUp() override {
        if (!hasStore()) GTEST_SKIP() << "LMDB isn't installed";
    }

    I4 open(const std::string& path, I4 access) {
        I4 key = 0;
        EXPECT_EQ(registry.RegOpenKeyExA(rootKeys::currentUser, {path}, 0, access, key), success);
        return key;
    }
};

std::string everyByte() {
    std::string bytes;
    for (int code = 0; code < 256; ++code) bytes += static_cast<char>(code);
    return bytes;
}

TEST_F(Registry, valuesOfAnySizeComeBack) {
    ASSERT_EQ(user.create("Software\\Values"), success);
    const std::string values[] = {"", "x", everyByte(), std::string(100'000, '\xE9'),
                                  std::string(40'000'000, 'm')};
    for (const auto& value : values) {
        const auto name = "of " + std::to_string(value.size());
        ASSERT_EQ(user.write("Software\\Values", name, value), success);
    }
    for (const auto& value : values) {
        std::string data = "before";
        ASSERT_EQ(user.read("Software\\Values", "OF " + std::to_string(value.size()), data), success);
        if (!value.empty()) {
            EXPECT_EQ(data == value, true) << value.size();
        }
    }
}

TEST_F(Registry, sizesAsTold) {
    user.create("K");
    user.write("K", "text", "abc", valueTypes::text);
    user.write("K", "ended", std::string("abc\0", 4), valueTypes::text);
    user.write("K", "bytes", "abc", valueTypes::binary);
    user.write("K", "none", "", valueTypes::text);
    const auto key = open("K", keyAccess::read);
    struct Case {
        const char* name;
        I4 room;
        I4 status;
        I4 size;
        std::string buffer;
    };
    const Case cases[] = {
        {"text", 6, success, 3, std::string("abc\0..", 6)},
        {"text", 3, success, 3, "abc..."},
        {"text", 2, moreData, 3, "......"},
        {"text", 0, moreData, 3, "......"},
        {"ended", 6, success, 4, std::string("abc\0..", 6)},
        {"bytes", 6, success, 3, "abc..."},
        {"none", 6, success, 0, "......"},
        {"missing", 6, notFound, 6, "......"},
    };
    for (const auto& c : cases) {
        std::string buffer = "......";
        auto size = c.room;
        I4 type = 0;
        const auto room = std::as_writable_bytes(std::span(buffer)).first(static_cast<std::size_t>(c.room));
        EXPECT_EQ(registry.RegQueryValueExA(key, {c.name}, type, room, size), c.status) << c.name << c.room;
        EXPECT_EQ(size, c.size) << c.name << c.room;
        EXPECT_EQ(buffer, c.buffer) << c.name << c.room;
    }
    EXPECT_EQ(registry.RegCloseKey(key), success);
    EXPECT_EQ(registry.RegCloseKey(key), invalidHandle);
}

TEST_F(Registry, namesMatchWithoutRegardToCaseAndPathsOfAnyDepthAreMade) {
    EXPECT_EQ(user.create("Soci\xE9t\xE9\\\xCE"
                          "le"),
              success);
    EXPECT_TRUE(user.has("SOCI\xC9T\xC9\\\xEELE"));
    EXPECT_FALSE(user.has("SOCIETE\\\xEELE"));
    EXPECT_TRUE(
        user.has("Soci\xE9t\xE9\\\\\xCE"
                 "le\\"));

    std::string deep = "D";
    for (int level = 1; level < 1000; ++level) deep += "\\niveau " + std::to_string(level);
    EXPECT_EQ(user.create(deep), success);
    EXPECT_EQ(user.write(deep, "v", "au fond"), success);
    std::string data;
    EXPECT_EQ(user.read(deep, "V", data), success);
    EXPECT_EQ(data, "au fond");
    EXPECT_TRUE(user.has(deep.substr(0, deep.rfind('\\'))));
    EXPECT_EQ(user.remove("D"), accessDenied);
}

TEST_F(Registry, keysGoWhenTheyHaveNoSubkeysAndTakeTheirValuesAlong) {
    user.create("A\\B");
    user.write("A\\B", "v", "1");
    user.write("A", "v", "2");
    const auto open_ = open("A\\B", keyAccess::write);
    EXPECT_EQ(user.remove("A"), accessDenied);
    EXPECT_EQ(user.remove("A\\B"), success);
    EXPECT_EQ(registry.RegSetValueExA(open_, {"v"}, 0, valueTypes::text, {}), keyDeleted);
    EXPECT_EQ(user.remove("A\\B"), notFound);
    EXPECT_EQ(user.remove("A"), success);
    user.create("A");
    std::string data;
    EXPECT_EQ(user.read("A", "v", data), notFound);
    EXPECT_EQ(user.remove(""), accessDenied);
    EXPECT_EQ(user.remove("Software"), accessDenied);
}

TEST_F(Registry, refusals) {
    user.create("K");
    const auto reading = open("K", keyAccess::read);
    const auto writing = open("K", keyAccess::write);
    I4 key = 0;
    I4 type = 0;
    I4 size = 0;
    EXPECT_EQ(registry.RegSetValueExA(reading, {"v"}, 0, valueTypes::text, {}), accessDenied);
    EXPECT_EQ(registry.RegQueryValueExA(writing, {"v"}, type, {}, size), accessDenied);
    EXPECT_EQ(registry.RegCreateKeyA(reading, {"sub"}, key), accessDenied);
    EXPECT_EQ(registry.RegOpenKeyExA(rootKeys::currentUser, {"No"}, 0, keyAccess::read, key), notFound);
    EXPECT_EQ(registry.RegOpenKeyExA(rootKeys::currentUser, {"\\K"}, 0, keyAccess::read, key), badPathName);
    EXPECT_EQ(registry.RegOpenKeyExA(12345, {"K"}, 0, keyAccess::read, key), invalidHandle);
    EXPECT_EQ(registry.RegCreateKeyA(0, {"K"}, key), invalidHandle);
    EXPECT_EQ(registry.RegCloseKey(0), invalidHandle);
}

TEST_F(Registry, theSevenRootsAreApartAndClassesShowTheUsersInFrontOfTheMachines) {
    for (auto root = rootKeys::classesRoot; root <= rootKeys::dynData; ++root) {
        RegistryUser below(registry, root);
        EXPECT_EQ(below.create("Root"), success);
        EXPECT_EQ(below.write("Root", "v", std::to_string(root)), success);
    }
    for (auto root = rootKeys::classesRoot; root <= rootKeys::dynData; ++root) {
        std::string data;
        EXPECT_EQ(RegistryUser(registry, root).read("Root", "v", data), success);
        EXPECT_EQ(data, std::to_string(root));
    }
    RegistryUser classes(registry, rootKeys::classesRoot);
    RegistryUser machine(registry, rootKeys::localMachine);
    EXPECT_TRUE(machine.has("Software\\Classes\\Root"));
    machine.create("Software\\Classes\\.x");
    machine.write("Software\\Classes\\.x", "both", "machine");
    machine.write("Software\\Classes\\.x", "one", "machine");
    user.create("Software\\Classes\\.x");
    user.write("Software\\Classes\\.x", "both", "user");
    std::string data;
    EXPECT_EQ(classes.read(".x", "both", data), success);
    EXPECT_EQ(data, "user");
    EXPECT_EQ(classes.read(".x", "one", data), success);
    EXPECT_EQ(data, "machine");
}

}  // namespace
}  // namespace tovera::testing
