#include "platform/linux/files.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "frame/utf8.h"
#include "platform/linux/services.h"
#include "platform/linux/user_folder.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

struct FileOperations : ::testing::Test {
    I4 rename(const Bstr& from, const Bstr& to) {
        return errorOf([&] { files.rename(from, to); });
    }

    UserFolder user;
    LinuxFiles files;
    LinuxServices services;
    ObjectRef fileSystem = services.createObject(u"scripting.FileSystemObject");
};

TEST_F(FileOperations, RenameNeverOverwrites) {
    user.makeFile("d/a.txt", "a");
    user.makeFile("d/b.txt", "b");
    user.makeFile("e/c", "c");
    const struct {
        const char16_t *from, *to;
        I4 error;
    } rows[] = {
        {u"C:\\d\\a.txt", u"C:\\d\\B.TXT", 58}, {u"C:\\d\\a.txt", u"C:\\d\\a.txt", 58},
        {u"C:\\d\\a.txt", u"C:\\e", 58},        {u"C:\\d\\none", u"C:\\d\\x", 53},
        {u"C:\\none\\a", u"C:\\d\\x", 76},      {u"C:\\d\\a.txt", u"C:\\none\\x", 76},
        {u"C:\\d\\a.txt", u"C:\\e\\c\\x", 76},  {u"D:\\a", u"C:\\x", 76},
        {u"C:\\d\\a.txt", u"D:\\a", 76},        {u"", u"C:\\x", 76},
        {u"c:\\D\\A.TXT", u"C:\\d\\A.Txt", 0},  {u"C:\\d\\a.txt", u"C:\\E\\moved", 0},
        {u"C:\\d", u"C:\\e\\folder", 0},
    };
    for (const auto& row : rows) EXPECT_EQ(rename(row.from, row.to), row.error) << row.error;
    EXPECT_EQ(user.textOf("e/moved"), "a");
    EXPECT_EQ(user.textOf("e/folder/b.txt"), "b");
    EXPECT_EQ(user.textOf("e/c"), "c");
    EXPECT_FALSE(std::filesystem::exists(user.onC("d")));
}

TEST_F(FileOperations, RenameMovesToAnotherFileSystem) {
    const TemporaryDisk disk("1m");
    if (!disk.isThere()) GTEST_SKIP() << "no second file system";
    const std::string content(100000, 'a');
    const Bstr there = fromUtf8(disk / "a");
    user.makeFile("a", content);
    user.makeFile("b", "b");
    user.makeFile("big", std::string(2000000, 'b'));
    ASSERT_EQ(chmod(user.onC("a").c_str(), 0640), 0);
    EXPECT_EQ(rename(u"C:\\a", join(u"Z:", there)), 0);
    EXPECT_EQ(std::filesystem::status(disk / "a").permissions(), std::filesystem::perms(0640));
    EXPECT_FALSE(std::filesystem::exists(user.onC("a")));
    EXPECT_EQ(rename(u"C:\\b", there), 58);
    EXPECT_EQ(rename(u"C:\\big", join(there, u".big")), 61);
    EXPECT_FALSE(std::filesystem::exists(disk / "a.big"));
    EXPECT_EQ(user.textOf("big").size(), 2000000U);
    EXPECT_EQ(rename(there, u"C:\\a"), 0);
    EXPECT_EQ(user.textOf("a"), content);
}

TEST_F(FileOperations, FileSystemObjectAnswersByName) {
    user.makeFile("Dossier/f.txt");
    const auto ask = [&](const char16_t* question, const char16_t* about) {
        Bstr path(about);
        return callMember(fileSystem, question, Reference(&path));
    };
    const struct {
        const char16_t* path;
        VariantBool isFile, isFolder;
    } places[] = {{u"C:\\dossier\\F.TXT", True, False},
                  {u"C:\\dossier", False, True},
                  {u"C:\\DOSSIER\\", False, True},
                  {u"C:\\windows\\system32", False, True},
                  {u"/", False, True},
                  {u"", False, False},
                  {u"D:\\a", False, False}};
    for (const auto& [path, isFile, isFolder] : places) {
        EXPECT_EQ(ask(u"fileexists", path), Variant(isFile)) << toUtf8(path);
        EXPECT_EQ(ask(u"FolderExists", path), Variant(isFolder)) << toUtf8(path);
    }
    const struct {
        const char16_t *path, *name, *parent;
    } names[] = {{u"C:\\a\\b.c", u"b.c", u"C:\\a"},
                 {u"a/b\\", u"b", u"a"},
                 {u"C:\\", u"", u""},
                 {u"C:b", u"b", u"C:"},
                 {u"C:\\a\\", u"a", u"C:\\"},
                 {u"/a", u"a", u"/"},
                 {u"a\\\\b", u"b", u"a"},
                 {u"b", u"b", u""}};
    for (const auto& [path, name, parent] : names) {
        EXPECT_EQ(ask(u"getFileName", path), Variant(name)) << toUtf8(path);
        EXPECT_EQ(ask(u"GetParentFolderName", path), Variant(parent)) << toUtf8(path);
    }
    EXPECT_EQ(errorOf([&] { callMember(fileSystem, u"DeleteFile", u"x"); }), 438);
    EXPECT_EQ(errorOf([&] { services.createObject(u"Scripting.Dictionary"); }), 429);
}

TEST_F(FileOperations, FileSystemObjectMakesOneFolder) {
    user.makeFile("f");
    const auto folder = callMember(fileSystem, u"CreateFolder", u"C:\\Neuf");
    EXPECT_EQ(readMember(*folder.as<ObjectRef>(), u"path"), Variant(u"C:\\Neuf"));
    EXPECT_EQ(readMember(*folder.as<ObjectRef>(), u"Name"), Variant(u"Neuf"));
    EXPECT_TRUE(std::filesystem::is_directory(user.onC("Neuf")));
    const std::pair<const char16_t*, I4> refused[] = {{u"C:\\neuf\\", 58}, {u"C:\\F", 58}, {u"C:\\x\\y", 76},
                                                      {u"C:\\f\\y", 76},   {u"Q:\\y", 76}, {u"", 5}};
    for (const auto& [path, error] : refused) {
        EXPECT_EQ(errorOf([&] { callMember(fileSystem, u"CreateFolder", path); }), error);
    }
}

}  // namespace
}  // namespace tovera::testing
