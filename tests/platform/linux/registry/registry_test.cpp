#include <gtest/gtest.h>
#include <numeric>

#include "platform/linux/registry/registry_status.h"
#include "platform/linux/text/code_pages.h"
#include "registry/cls_initreg.h"
#include "support/user_home.h"

namespace tovera::testing {
namespace {

using namespace registryStatus;

struct Registry : UserHomeWithStore {
    I4 open(const std::string& path, I4 access) {
        I4 key = 0;
        EXPECT_EQ(user.registry.RegOpenKeyExA(rootKeys::currentUser, {path}, 0, access, key), success);
        return key;
    }
};

TEST_F(Registry, valuesOfAnySizeComeBackFromADeepKey) {
    std::string path;
    for (int level = 0; level < 1000; ++level) path += "\xC9t\xE9\\";
    std::string everyByte(256, '\0');
    std::iota(everyByte.begin(), everyByte.end(), '\0');
    const std::string values[] = {"", "x", everyByte, std::string(100'000, '\xE9'),
                                  std::string(20'000'000, 'm')};
    ASSERT_EQ(user.create(path), success);
    for (const auto& value : values)
        ASSERT_EQ(user.write(path, "OF " + std::to_string(value.size()), value), success);
    for (const auto& value : values)
        EXPECT_TRUE(user.reads(path, "of " + std::to_string(value.size()), value)) << value.size();

    auto ours = platform.with(home().services);
    Cls_InitREG ofClass(ours);
    const auto key = join(u"HKEY_CURRENT_USER\\", fromAnsi1252(path.substr(0, path.size() - 1)));
    auto [written, read, name] = std::tuple(key, key, Bstr(u"Œuvre"));
    ofClass.EcrireREG_BINARY(written, name, Bstr(fromAnsi1252(everyByte)));
    EXPECT_EQ(ofClass.LireREG_BINARY(read, name), Variant(Bstr(fromAnsi1252(everyByte))));
    EXPECT_TRUE(user.reads(path, "\x8CUVRE", everyByte));
}

TEST_F(Registry, sizesAsTold) {
    user.create("K");
    user.write("K", "text", "abc", valueTypes::text);
    user.write("K", "ended", std::string("abc\0", 4), valueTypes::text);
    user.write("K", "bytes", "abc", valueTypes::binary);
    user.write("K", "none", "", valueTypes::text);
    const auto key = open("K", keyAccess::read);
    const std::tuple<const char*, I4, I4, I4, I4, std::string> rows[] = {
        {"text", 1, 6, success, 4, {"abc\0..", 6}},  {"text", 1, 4, success, 4, {"abc\0..", 6}},
        {"text", 1, 3, moreData, 4, "......"},       {"text", 3, 4, success, 4, {"abc\0..", 6}},
        {"text", 3, 3, moreData, 4, "......"},       {"text", 3, 0, moreData, 4, "......"},
        {"text", 4, 3, success, 3, "abc..."},        {"text", 4, 4, success, 3, {"abc\0..", 6}},
        {"ended", 1, 4, success, 4, {"abc\0..", 6}}, {"bytes", 1, 6, success, 3, "abc..."},
        {"none", 1, 6, success, 0, "......"},        {"missing", 1, 6, notFound, 6, "......"}};
    for (auto [name, type, room, status, size, expected] : rows) {
        std::string buffer = "......";
        const auto bytes = std::as_writable_bytes(std::span(buffer)).first(static_cast<std::size_t>(room));
        auto sizeOrRoom = room;
        EXPECT_EQ(user.registry.RegQueryValueExA(key, {name}, type, bytes, sizeOrRoom), status);
        EXPECT_EQ(std::tuple(sizeOrRoom, buffer), std::tuple(size, expected)) << name << room;
    }
}

TEST_F(Registry, namesOfKeysEndAt255Characters) {
    const auto longest = "K\\" + std::string(255, 'n');
    EXPECT_EQ(user.create(longest + "\\sub"), success);
    EXPECT_TRUE(user.has(longest));
    EXPECT_EQ(user.create("New\\" + std::string(256, 'n') + "\\sub"), invalidParameter);
    EXPECT_FALSE(user.has("New")) << "nothing of a refused path is made";
}

TEST_F(Registry, keysMatchWithoutCaseAndGoWithTheirValuesWhenTheyHaveNoSubkeys) {
    ASSERT_EQ(user.create("Soci\xE9t\xE9\\\xCElot"), success);
    EXPECT_TRUE(user.has("Soci\xE9t\xE9\\\\\xCElot\\") && !user.has("SOCIETE\\\xCElot"));
    for (const auto* path : {"SOCI\xC9T\xC9\\\xEELOT", "soci\xE9t\xE9"})
        for (const auto* name : {"v", "w"}) EXPECT_EQ(user.write(path, name, "1"), success);
    const auto opened = open("Soci\xE9t\xE9\\\xCElot", keyAccess::write);
    const std::pair<const char*, I4> removals[] = {{"SOCI\xC9T\xC9", accessDenied},
                                                   {"SOCI\xC9T\xC9\\\xEElot", success},
                                                   {"SOCI\xC9T\xC9\\\xEElot", notFound},
                                                   {"SOCI\xC9T\xC9", success},
                                                   {"", accessDenied},
                                                   {"Software", accessDenied}};
    for (const auto& [path, status] : removals) EXPECT_EQ(user.remove(path), status) << path;
    EXPECT_EQ(user.registry.RegSetValueExA(opened, {"v"}, 0, valueTypes::text, {}), keyDeleted);
    user.create("Soci\xE9t\xE9");
    for (const auto* name : {"v", "w"}) EXPECT_EQ(user.read("Soci\xE9t\xE9", name), notFound);
}

TEST_F(Registry, refusals) {
    user.create("K");
    const auto reading = open("K", keyAccess::read);
    const auto writing = open("K", keyAccess::write);
    auto& registry = user.registry;
    I4 key = 0, size = 0;
    EXPECT_EQ(registry.RegSetValueExA(reading, {"v"}, 0, valueTypes::text, {}), accessDenied);
    EXPECT_EQ(registry.RegQueryValueExA(writing, {"v"}, key, {}, size), accessDenied);
    EXPECT_EQ(registry.RegCreateKeyA(reading, {"sub"}, key), accessDenied);
    EXPECT_EQ(user.create("\\K"), badPathName);
    EXPECT_EQ(registry.RegCreateKeyA(0, {"K"}, key), invalidHandle);
    EXPECT_EQ(registry.RegCloseKey(12345), invalidHandle);
    EXPECT_EQ(registry.RegCloseKey(reading), success);
    EXPECT_EQ(registry.RegCloseKey(reading), invalidHandle);
}

TEST_F(Registry, theSevenRootsAreApartAndClassesShowTheUsersInFrontOfTheMachines) {
    for (user.root = rootKeys::classesRoot; user.root <= rootKeys::dynData; ++user.root)
        EXPECT_EQ(user.create("Root") | user.write("Root", "v", std::to_string(user.root)), success);
    for (user.root = rootKeys::classesRoot; user.root <= rootKeys::dynData; ++user.root)
        EXPECT_TRUE(user.reads("Root", "v", std::to_string(user.root)));
    const std::string classes = "Software\\Classes\\";
    user.root = rootKeys::localMachine;
    EXPECT_TRUE(user.has(classes + "Root"));
    user.create(classes + ".x");
    for (const auto* name : {"both", "one"}) user.write(classes + ".x", name, "machine");
    user.root = rootKeys::currentUser;
    user.create(classes + ".x");
    user.write(classes + ".x", "both", "user");
    user.root = rootKeys::classesRoot;
    EXPECT_TRUE(user.reads(".x", "both", "user") && user.reads(".x", "one", "machine"));
}

}  // namespace
}  // namespace tovera::testing
