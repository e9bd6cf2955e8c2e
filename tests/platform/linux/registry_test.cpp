#include <gtest/gtest.h>
#include <numeric>

#include "platform/linux/code_pages.h"
#include "platform/linux/registry_user.h"
#include "platform/linux/temporary_folder.h"
#include "platform/platform.h"
#include "registry/cls_initreg.h"

namespace tovera::testing {
namespace {

using namespace registryStatus;

struct Registry : ::testing::Test {
    TemporaryFolder folder;
    LinuxAdvapi32 registry{folder / "registry"};
    RegistryUser user{registry};
    std::string data;

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
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    return bytes;
}

TEST_F(Registry, theClassReadsBackWhatItWrote) {
    Platform platform{home().services, home().user32, home().kernel32, home().files, registry, home().odbc32};
    Cls_InitREG values(platform);
    std::u16string deep = u"HKEY_CURRENT_USER";
    for (int level = 0; level < 1000; ++level) deep += u"\\Été";
    const auto call = [&](auto member, auto&... value) {
        Bstr path = deep;
        Bstr entry = u"Œuvre";
        return (values.*member)(path, entry, value...);
    };
    Bstr key = deep;
    values.CreerREG_Cle(key);
    for (const auto& text : {Bstr(fromAnsi1252(everyByte())), Bstr(u"x")}) {
        call(&Cls_InitREG::EcrireREG_BINARY, text);
        EXPECT_EQ(call(&Cls_InitREG::LireREG_BINARY), Variant(text));
    }
    for (const std::size_t length : {1, 254, 255, 256}) {
        Bstr text = std::u16string(length, u'é');
        call(&Cls_InitREG::EcrireREG_STRING, text);
        EXPECT_EQ(call(&Cls_InitREG::LireREG_STRING), Variant(length < 255 ? text : Bstr(u"Error")));
    }
}

TEST_F(Registry, valuesOfAnySizeComeBack) {
    ASSERT_EQ(user.create("Software\\Values"), success);
    const std::string values[] = {"", "x", std::string(100'000, '\xE9'), std::string(20'000'000, 'm')};
    for (const auto& value : values) {
        const auto name = "of " + std::to_string(value.size());
        ASSERT_EQ(user.write("Software\\Values", name, value), success);
    }
    for (const auto& value : values) {
        ASSERT_EQ(user.read("Software\\Values", "OF " + std::to_string(value.size()), data), success);
        EXPECT_TRUE(data == value) << value.size();
    }
}

TEST_F(Registry, sizesAsTold) {
    user.create("K");
    user.write("K", "text", "abc", valueTypes::text);
    user.write("K", "ended", std::string("abc\0", 4), valueTypes::text);
    user.write("K", "bytes", "abc", valueTypes::binary);
    user.write("K", "none", "", valueTypes::text);
    const auto key = open("K", keyAccess::read);
    const struct {
        const char* name;
        I4 type, room, status, size;
        std::string buffer;
    } rows[] = {{"text", 1, 6, success, 3, {"abc\0..", 6}},  {"text", 1, 4, success, 3, {"abc\0..", 6}},
                {"text", 1, 3, moreData, 4, "......"},       {"text", 3, 3, success, 3, "abc..."},
                {"text", 3, 2, moreData, 3, "......"},       {"text", 3, 0, moreData, 3, "......"},
                {"ended", 1, 4, success, 4, {"abc\0..", 6}}, {"bytes", 1, 6, success, 3, "abc..."},
                {"none", 1, 6, success, 0, "......"},        {"missing", 1, 6, notFound, 6, "......"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name + std::to_string(row.room));
        std::string buffer = "......";
        auto [size, type] = std::pair(row.room, row.type);
        const auto room = std::as_writable_bytes(std::span(buffer)).first(static_cast<std::size_t>(row.room));
        EXPECT_EQ(registry.RegQueryValueExA(key, {row.name}, type, room, size), row.status);
        EXPECT_EQ(size, row.size);
        EXPECT_EQ(buffer, row.buffer);
    }
    EXPECT_EQ(registry.RegCloseKey(key), success);
    EXPECT_EQ(registry.RegCloseKey(key), invalidHandle);
}

TEST_F(Registry, namesMatchWithoutRegardToCase) {
    EXPECT_EQ(user.create("Soci\xE9t\xE9\\\xCE"
                          "le"),
              success);
    EXPECT_TRUE(user.has("SOCI\xC9T\xC9\\\xEELE"));
    EXPECT_FALSE(user.has("SOCIETE\\\xEELE"));
    EXPECT_TRUE(
        user.has("Soci\xE9t\xE9\\\\\xCE"
                 "le\\"));
}

TEST_F(Registry, keysGoWhenTheyHaveNoSubkeysAndTakeTheirValuesAlong) {
    user.create("A\\B");
    user.write("A\\B", "v", "1");
    user.write("A", "v", "2");
    const auto opened = open("A\\B", keyAccess::write);
    EXPECT_EQ(user.remove("A"), accessDenied);
    EXPECT_EQ(user.remove("A\\B"), success);
    EXPECT_EQ(registry.RegSetValueExA(opened, {"v"}, 0, valueTypes::text, {}), keyDeleted);
    EXPECT_EQ(user.remove("A\\B"), notFound);
    EXPECT_EQ(user.remove("A"), success);
    user.create("A");
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
        EXPECT_EQ(below.create("Root") | below.write("Root", "v", std::to_string(root)), success);
    }
    for (auto root = rootKeys::classesRoot; root <= rootKeys::dynData; ++root) {
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
    for (const std::string owner : {"user", "machine"}) {
        EXPECT_EQ(classes.read(".x", owner == "user" ? "both" : "one", data), success);
        EXPECT_EQ(data, owner);
    }
}

}  // namespace
}  // namespace tovera::testing
