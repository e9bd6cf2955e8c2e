#include "platform/files.h"

#include <gtest/gtest.h>
#include <map>
#include <sys/stat.h>
#include <unistd.h>

#include "frame/utf8.h"
#include "platform/linux/child_process.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/files/long_names.h"
#include "platform/linux/files/named_entry.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/short_names.h"
#include "platform/linux/temporary_folder.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

struct Paths : ::testing::Test {
    UserFolder user;
};

TEST_F(Paths, LeadToThisSystemsFiles) {
    using Rows = std::vector<std::pair<std::u16string_view, std::string>>;
    std::filesystem::current_path("/usr");
    const Rows fromUsr = {{u"c:/a\\.\\x\\..\\b", user.onC("a/b")},
                          {u"C:\\..\\..\\etc", user.onC("etc")},
                          {u"C:\\", user.onC("")},
                          {u"C:a", user.onC("a")},
                          {u"C:", user.onC("")},
                          {u"C:..\\..\\etc\\passwd", user.onC("etc/passwd")},
                          {u"\\\\?\\C:a\\../../..\\b", user.onC("b")},
                          {u"\\\\?\\C:\\a", user.onC("a")},
                          {u"Z:\\tmp\\\u00E9", "/tmp/\xC3\xA9"},
                          {u"z:lib", "lib"},
                          {u"/tmp\\a/b", "/tmp/a/b"},
                          {u"\\tmp", "/tmp"},
                          {u"a\\..\\b", "a/../b"},
                          {{u"/a\0b", 4}, "/a"},
                          {u"B:\\a", ""},
                          {u"\\\\server\\share", ""},
                          {u"", ""}};
    for (const auto& [path, expected] : fromUsr) EXPECT_EQ(hostPath(path), expected) << expected;
    makeWindowsFolders();
    std::filesystem::current_path(user.onC("WINDOWS"));
    const Rows fromC = {{u"C:a", user.onC("WINDOWS/a")},
                        {u"C:", user.onC("WINDOWS/")},
                        {u"C:..\\a", user.onC("a")},
                        {u"C:..\\..\\..\\a", user.onC("a")},
                        {u"\\a", user.onC("a")},
                        {u"..\\..\\..\\a", user.onC("a")},
                        {u"/../a", "/../a"}};
    for (const auto& [path, expected] : fromC) EXPECT_EQ(hostPath(path), expected) << expected;
    const Rows back = {{u"C:\\a\\b", user.onC("a/b")}, {u"Z:\\home\\x", "/home/x"}, {u"Z:\\", "/"}};
    for (const auto& [expected, path] : back) EXPECT_EQ(windowsPath(path), expected) << path;
    EXPECT_TRUE(windowsPath(driveC() + "2").starts_with(u"Z:")) << "a neighbour of the drive's folder";
}

TEST_F(Paths, AreFoundWithoutRegardToCase) {
    for (const auto* name : {"Dossier/\xC3\x89t\xC3\xA9.TXT", "dossier2/A", "dossier2/a"})
        user.makeFile(name);
    const std::pair<std::u16string_view, std::string> rows[] = {
        {u"c:\\DOSSIER\\\u00E9T\u00C9.txt", "Dossier/\xC3\x89t\xC3\xA9.TXT"},
        {u"C:\\dossier\\Neuf\\Fichier", "Dossier/Neuf/Fichier"},
        {u"C:\\DOSSIER2\\a", "dossier2/a"},
        {u"C:\\windows\\System32", "WINDOWS/SYSTEM32"}};
    for (const auto& [path, expected] : rows) EXPECT_EQ(foundHostPath(path), user.onC(expected));
}

TEST_F(Paths, HaveShortNames) {
    const std::pair<std::string, std::string> rows[] = {
        {"Nom long.txt", "NOMLON~1.TXT"},
        {"nomlong2.texte", "NOMLON~1.TEX"},
        {"a b", "AB~1"},
        {".profile", "PROFIL~1"},
        {"a.b.c", "AB~1.C"},
        {"x+y,z.[1]", "X_Y_Z~1._1_"},
        {"abcdefghi", "ABCDEF~1"},
        {"\xC3\xA9t\xC3\xA9s chauds", "\xC3\x89T\xC3\x89SCH~1"},
        {"\xE2\x98\x83.txt", "_~1.TXT"}};
    for (const auto& [name, shortName] : rows) user.makeFile("d/" + name);
    for (const auto* name : {"court.txt", "Court2", "12345678.123", "\xC3\xA9"}) {
        user.makeFile(std::string("d/") + name);
        EXPECT_TRUE(isShortName(name)) << name;
    }
    const auto names = shortNames(user.onC("d"));
    EXPECT_EQ(names.size(), std::size(rows));
    for (const auto& [name, shortName] : rows) {
        EXPECT_EQ(names.at(name), shortName);
        EXPECT_EQ(entryNamed(user.onC("d"), shortName), name);
    }
    EXPECT_EQ(longPath(u"c:/D\\.\\nomlon~1.txt"), u"c:/d\\.\\Nom long.txt");
    EXPECT_EQ(shortPath(u"C:\\D\\NOM LONG.TXT"), u"C:\\d\\NOMLON~1.TXT");
    EXPECT_EQ(shortPath(u"C:\\"), u"C:\\");
    for (const auto* missing : {u"C:\\d\\rien", u"C:\\d\\NOMLON~2.TXT", u"", u"B:\\"})
        EXPECT_FALSE(longPath(missing) || shortPath(missing));
}

TEST_F(Paths, KeepTheirShortNamesWhenOthersCome) {
    std::vector<std::string> made;
    for (int i = 7; i > 0; --i) {
        usleep(20000);  // file systems count births in steps
        made.push_back("Longue liste " + std::to_string(i));
        user.makeFile("d/" + made.back());
        const auto names = shortNames(user.onC("d"));
        EXPECT_EQ(names.at(made.front()), "LONGUE~1");
        for (const auto& name : made) EXPECT_EQ(entryNamed(user.onC("d"), names.at(name)), name);
    }
    user.makeFile("e/LONGUE~1");
    user.makeFile("e/longue liste");
    EXPECT_EQ(entryNamed(user.onC("e"), "longue~2"), "longue liste");
}

struct FileOperations : ::testing::Test {
    I4 rename(const Bstr& from, const Bstr& to) {
        return errorOf([&] { homeFiles().rename(from, to); });
    }
    Variant ask(const char16_t* question, Bstr about) {
        return callMember(fileSystem, question, Reference(&about));
    }

    UserFolder user;
    ObjectRef fileSystem = home().services.createObject(u"scripting.FileSystemObject");
};

TEST_F(FileOperations, RenameNeverOverwrites) {
    for (const auto* name : {"d/a.txt", "d/b.txt", "e/c"}) user.makeFile(name, name);
    const std::tuple<const char16_t*, const char16_t*, I4> rows[] = {
        {u"C:\\d\\a.txt", u"C:\\d\\B.TXT", 58}, {u"C:\\d\\a.txt", u"C:\\d\\a.txt", 58},
        {u"C:\\d\\a.txt", u"C:\\e", 58},        {u"C:\\d\\none", u"C:\\d\\x", 53},
        {u"C:\\none\\a", u"C:\\d\\x", 76},      {u"C:\\d\\a.txt", u"C:\\none\\x", 76},
        {u"C:\\d\\a.txt", u"C:\\e\\c\\x", 76},  {u"B:\\a", u"C:\\x", 76},
        {u"C:\\d\\a.txt", u"B:\\a", 76},        {u"c:\\D\\A.TXT", u"C:\\d\\A.Txt", 0},
        {u"C:\\d\\a.txt", u"C:\\E\\moved", 0},  {u"C:\\d", u"C:\\e\\folder", 0}};
    for (const auto& [from, to, error] : rows) EXPECT_EQ(rename(from, to), error) << error;
    EXPECT_EQ(user.textOf("e/moved"), "d/a.txt");
    EXPECT_EQ(user.textOf("e/folder/b.txt"), "d/b.txt");
    EXPECT_EQ(user.textOf("e/c"), "e/c");
    EXPECT_FALSE(std::filesystem::exists(user.onC("d")));
}

TEST_F(FileOperations, NumbersAreReadFromFilesAlone) {
    user.makeFile("clos.wav", "\x01\x02");
    user.makeFile("lire.wav", "\x01\x02");
    chmod(user.onC("clos.wav").c_str(), 0);
    chmod(user.onC("lire.wav").c_str(), 0444);
    chmod(user.onC("../..").c_str(), 0755);
    mkfifo(user.onC("tuyau.wav").c_str(), 0600);
    std::filesystem::create_directory(user.onC("dossier.wav"));
    const auto errorFor = [&](const std::string& name) {
        I2 number = 0;
        const auto error = errorOf([&] { homeFiles().readI2(Bstr(fromUtf8(user.onC(name))), 1, number); });
        EXPECT_EQ(number, error == 0 ? 0x201 : 0) << name;
        return error;
    };
    EXPECT_EQ(errorFor("tuyau.wav"), 75) << "a pipe would hold its reader";
    EXPECT_EQ(errorFor("dossier.wav"), 75);
    EXPECT_TRUE(
        succeedsForOthers([&] { return errorFor("clos.wav") == 70 && errorFor("lire.wav") == 0 ? 0 : 1; }));
}

TEST_F(FileOperations, RenameMovesToAnotherFileSystem) {
    const TemporaryDisk disk("1m");
    if (!disk.isThere) GTEST_SKIP() << "no second file system";
    const std::string content(100000, 'a');
    const Bstr there = fromUtf8(disk / "a");
    user.makeFile("a", content);
    user.makeFile("big", std::string(2000000, 'b'));
    ASSERT_EQ(chmod(user.onC("a").c_str(), 0640), 0);
    EXPECT_EQ(rename(u"C:\\a", join(u"Z:", there)), 0);
    EXPECT_EQ(std::filesystem::status(disk / "a").permissions(), std::filesystem::perms(0640));
    EXPECT_FALSE(std::filesystem::exists(user.onC("a")));
    EXPECT_EQ(rename(u"C:\\big", there), 58);
    EXPECT_EQ(rename(u"C:\\big", join(there, u".big")), 61);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(disk.path()), {}), 1);
    EXPECT_EQ(user.textOf("big").size(), 2000000U);
    EXPECT_EQ(rename(there, u"C:\\a"), 0);
    EXPECT_EQ(user.textOf("a"), content);
}

TEST_F(FileOperations, FileSystemObjectAnswersByName) {
    user.makeFile("Dossier/f.txt");
    const std::tuple<const char16_t*, VariantBool, VariantBool> places[] = {
        {u"C:\\dossier\\F.TXT", True, False},
        {u"C:\\DOSSIER\\", False, True},
        {u"C:\\windows\\system32", False, True},
        {u"/", False, True},
        {u"", False, False},
        {u"B:\\a", False, False}};
    for (const auto& [path, isFile, isFolder] : places) {
        EXPECT_EQ(ask(u"fileexists", path), Variant(isFile)) << toUtf8(Bstr(path));
        EXPECT_EQ(ask(u"FolderExists", path), Variant(isFolder)) << toUtf8(Bstr(path));
    }
    const std::tuple<const char16_t*, const char16_t*, const char16_t*> names[] = {
        {u"C:\\a\\b.c", u"b.c", u"C:\\a"},
        {u"a/b\\", u"b", u"a"},
        {u"C:\\", u"", u""},
        {u"C:b", u"b", u"C:"},
        {u"C:\\a\\", u"a", u"C:\\"},
        {u"/a", u"a", u"/"},
        {u"a\\\\b", u"b", u"a"},
        {u"b", u"b", u""}};
    for (const auto& [path, name, parent] : names) {
        EXPECT_EQ(ask(u"getFileName", path), Variant(name)) << toUtf8(Bstr(path));
        EXPECT_EQ(ask(u"GetParentFolderName", path), Variant(parent)) << toUtf8(Bstr(path));
    }
    EXPECT_EQ(errorOf([&] { ask(u"DeleteFile", u"x"); }), 438);
}

TEST_F(FileOperations, FileSystemObjectMakesOneFolder) {
    user.makeFile("f");
    const auto folder = ask(u"CreateFolder", u"C:\\Neuf");
    EXPECT_EQ(readMember(*folder.as<ObjectRef>(), u"path"), Variant(u"C:\\Neuf"));
    EXPECT_EQ(readMember(*folder.as<ObjectRef>(), u"Name"), Variant(u"Neuf"));
    EXPECT_TRUE(std::filesystem::is_directory(user.onC("Neuf")));
    const std::pair<const char16_t*, I4> refused[] = {{u"C:\\neuf\\", 58}, {u"C:\\F", 58}, {u"C:\\x\\y", 76},
                                                      {u"C:\\f\\y", 76},   {u"Q:\\y", 76}, {u"", 5}};
    for (const auto& [path, error] : refused)
        EXPECT_EQ(errorOf([&] { ask(u"CreateFolder", path); }), error) << toUtf8(Bstr(path));
}

TEST(LinuxFiles, LinesOfManyWritersStayWhole) {
    const UserFolder files;
    files.makeFile("x");
    constexpr int writers = 8;
    constexpr int lines = 200;
    const auto line = [](int writer) { return std::string(3000, static_cast<char>('a' + writer)) + "\r\n"; };
    EXPECT_TRUE(succeedsInEach(writers, [&](int writer) {
        for (int i = 0; i < lines; ++i) homeFiles().append(u"C:\\journal.txt", line(writer));
        return 0;
    }));
    std::istringstream journal(files.textOf("journal.txt"));
    std::map<std::string, int> counts;
    for (std::string text; std::getline(journal, text);) ++counts[text + '\n'];
    EXPECT_EQ(counts.size(), static_cast<std::size_t>(writers));
    for (int writer = 0; writer < writers; ++writer) EXPECT_EQ(counts[line(writer)], lines);
}

TEST(LinuxFiles, NothingIsWrittenInHalf) {
    const UserFolder files;
    files.makeFile("journal.txt", "one\r\n");
    files.makeFile("source.txt", std::string(8000, 'x'));
    EXPECT_TRUE(succeedsOnFullDisk(4096, [&](auto&&) {
        const auto append = [&] { homeFiles().append(u"C:\\journal.txt", std::string(8000, 'y')); };
        const auto copy = [&] { homeFiles().copy(u"C:\\source.txt", u"C:\\journal.txt"); };
        return errorOf(append) == 61 && errorOf(copy) == 61 ? 0 : 1;
    }));
    EXPECT_EQ(files.textOf("journal.txt"), "one\r\n");
    auto& port = homeFiles();
    const std::pair<const char16_t*, I4> appended[] = {
        {u"C:\\aucun\\x", 76}, {u"C:\\", 75}, {u"", 75}, {u"Z:\\dev\\null", 75}};
    for (const auto& [path, error] : appended)
        EXPECT_EQ(errorOf([&, p = path] { port.append(p, "x"); }), error);
    EXPECT_EQ(errorOf([&] { port.remove(u"C:\\aucun.txt"); }), 53);
    EXPECT_EQ(errorOf([&] { port.copy(u"C:\\aucun.txt", u"C:\\x"); }), 53);
    EXPECT_EQ(errorOf([&] { port.changeFolder(u"C:\\journal.txt"); }), 76);
    files.makeFile("B.LNK");
    files.makeFile("a.lnk.txt");
    EXPECT_EQ(port.filesLike(u"C:\\*.lnk"), std::vector<Bstr>{u"B.LNK"});
    EXPECT_EQ(port.filesLike(u"C:\\?.l*"), (std::vector<Bstr>{u"B.LNK", u"a.lnk.txt"}));
    EXPECT_TRUE(port.filesLike(u"C:\\aucun\\*").empty());
}

}  // namespace
}  // namespace tovera::testing
