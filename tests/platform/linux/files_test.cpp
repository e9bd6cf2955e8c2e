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
    struct stat here {
    }, there{};
    user.makeFile("a", std::string(100000, 'a'));
    const std::string other = "/dev/shm/tovera-files-test";
    std::filesystem::remove(other);
    if (stat(user.onC("a").c_str(), &here) != 0 || stat("/dev/shm", &there) != 0 ||
        here.st_dev == there.st_dev) {
        GTEST_SKIP() << "no second file system";
    }
    ASSERT_EQ(chmod(user.onC("a").c_str(), 0640), 0);
    EXPECT_EQ(rename(u"C:\\a", u"Z:\\dev\\shm\\tovera-files-test"), 0);
    ASSERT_EQ(stat(other.c_str(), &there), 0);
    EXPECT_EQ(there.st_mode & 07777U, 0640U);
    EXPECT_FALSE(std::filesystem::exists(user.onC("a")));
    user.makeFile("b", "b");
    EXPECT_EQ(rename(u"C:\\b", u"/dev/shm/tovera-files-test"), 58);
    EXPECT_EQ(rename(u"/dev/shm/tovera-files-test", u"C:\\a"), 0);
    EXPECT_EQ(user.textOf("a"), std::string(100000, 'a'));
}

TEST_F(FileOperations, FileSystemObjectAnswersByName) {
    user.makeFile("Dossier/f.txt");
    const struct {
        const char16_t *member, *path;
        Variant expected;
    } rows[] = {
        {u"FileExists", u"C:\\dossier\\F.TXT", True},
        {u"fileexists", u"C:\\dossier", False},
        {u"FileExists", u"", False},
        {u"FileExists", u"D:\\a", False},
        {u"FolderExists", u"C:\\DOSSIER\\", True},
        {u"FolderExists", u"C:\\dossier\\f.txt", False},
        {u"FolderExists", u"C:\\windows\\system32", True},
        {u"FolderExists", u"/", True},
        {u"getFileName", u"C:\\a\\b.c", u"b.c"},
        {u"getFileName", u"a/b\\", u"b"},
        {u"getFileName", u"C:\\", u""},
        {u"getFileName", u"C:b", u"b"},
        {u"getParentFolderName", u"C:\\a\\b.c", u"C:\\a"},
        {u"getParentFolderName", u"C:\\a\\", u"C:\\"},
        {u"getParentFolderName", u"/a", u"/"},
        {u"getParentFolderName", u"a\\\\b", u"a"},
        {u"getParentFolderName", u"C:\\", u""},
        {u"getParentFolderName", u"C:b", u"C:"},
        {u"getParentFolderName", u"b", u""},
    };
    for (const auto& row : rows) {
        Bstr path(row.path);
        EXPECT_EQ(callMember(fileSystem, row.member, Reference(&path)), row.expected)
            << toUtf8(row.member) << ' ' << toUtf8(row.path);
    }
    EXPECT_EQ(errorOf([&] { callMember(fileSystem, u"DeleteFile", u"x"); }), 438);
    EXPECT_EQ(errorOf([&] { services.createObject(u"Scripting.Dictionary"); }), 429);
}

TEST_F(FileOperations, FileSystemObjectMakesOneFolder) {
    const auto make = [&](const char16_t* path) {
        return errorOf([&] {
            const auto folder = callMember(fileSystem, u"CreateFolder", path);
            EXPECT_EQ(readMember(*folder.as<ObjectRef>(), u"path"), Variant(path));
            EXPECT_EQ(readMember(*folder.as<ObjectRef>(), u"Name"), Variant(u"Neuf"));
        });
    };
    user.makeFile("f");
    EXPECT_EQ(make(u"C:\\Neuf"), 0);
    EXPECT_TRUE(std::filesystem::is_directory(user.onC("Neuf")));
    EXPECT_EQ(make(u"C:\\neuf\\"), 58);
    EXPECT_EQ(make(u"C:\\F"), 58);
    EXPECT_EQ(make(u"C:\\x\\y"), 76);
    EXPECT_EQ(make(u"C:\\f\\y"), 76);
    EXPECT_EQ(make(u"Q:\\y"), 76);
    EXPECT_EQ(make(u""), 5);
}

}  // namespace
}  // namespace tovera::testing
