#include "platform/linux/paths.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "platform/linux/folder_entries.h"
#include "platform/linux/long_names.h"
#include "platform/linux/short_names.h"
#include "platform/linux/user_folder.h"

namespace tovera::testing {
namespace {

struct Paths : ::testing::Test {
    UserFolder user;
};

TEST_F(Paths, LeadToThisSystemsFiles) {
    std::filesystem::current_path("/usr");
    const std::pair<std::u16string_view, std::string> rows[] = {
        {u"C:\\a\\b.txt", user.onC("a/b.txt")},
        {u"c:/a\\.\\x\\..\\b", user.onC("a/b")},
        {u"C:\\..\\..\\etc", user.onC("etc")},
        {u"C:\\", user.onC("")},
        {u"C:a", user.onC("a")},
        {u"\\\\?\\C:\\a", user.onC("a")},
        {u"Z:\\tmp\\\u00E9", "/tmp/\xC3\xA9"},
        {u"z:lib", "lib"},
        {u"/tmp\\a/b", "/tmp/a/b"},
        {u"\\tmp", "/tmp"},
        {u"a\\..\\b", "a/../b"},
        {{u"/a\0b", 4}, "/a"},
        {u"D:\\a", ""},
        {u"\\\\server\\share", ""},
        {u"", ""},
    };
    for (const auto& [path, expected] : rows) EXPECT_EQ(hostPath(path), expected) << expected;
    makeWindowsFolders();
    std::filesystem::current_path(user.onC("WINDOWS"));
    EXPECT_EQ(hostPath(u"C:a"), user.onC("WINDOWS/a"));
    EXPECT_EQ(hostPath(u"\\a"), user.onC("a"));
    EXPECT_EQ(windowsPath(user.onC("a/b")), u"C:\\a\\b");
    EXPECT_EQ(windowsPath("/home/x"), u"Z:\\home\\x");
    EXPECT_EQ(windowsPath("/"), u"Z:\\");
}

TEST_F(Paths, AreFoundWithoutRegardToCase) {
    user.makeFile("Dossier/\xC3\x89t\xC3\xA9.TXT");
    user.makeFile("dossier2/A");
    user.makeFile("dossier2/a");
    const std::pair<std::u16string_view, std::string> rows[] = {
        {u"c:\\DOSSIER\\\u00E9T\u00C9.txt", "Dossier/\xC3\x89t\xC3\xA9.TXT"},
        {u"C:\\dossier\\Neuf\\Fichier", "Dossier/Neuf/Fichier"},
        {u"C:\\DOSSIER2\\a", "dossier2/a"},
        {u"C:\\windows\\System32", "WINDOWS/SYSTEM32"},
        {u"C:\\nowhere", "nowhere"},
    };
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
        {"\xC3\xA9t\xC3\xA9s chauds", "\xC3\x89T\xC3\x89SCH~1"},
        {"\xE2\x98\x83.txt", "_~1.TXT"},
        {"abcdefghi", "ABCDEF~1"},
    };
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
    for (const auto* missing : {u"C:\\d\\rien", u"C:\\d\\NOMLON~2.TXT", u"", u"D:\\"}) {
        EXPECT_FALSE(longPath(missing) || shortPath(missing));
    }
}

TEST_F(Paths, KeepTheirShortNamesWhenOthersCome) {
    std::vector<std::string> made;
    for (int i = 7; i > 0; --i) {
        usleep(20000);  // file systems count births in steps
        made.push_back("Longue liste " + std::to_string(i));
        user.makeFile("d/" + made.back());
        std::map<std::string, std::string> reversed;
        for (const auto& [name, shortName] : shortNames(user.onC("d"))) reversed[shortName] = name;
        EXPECT_EQ(reversed.size(), made.size());
        EXPECT_EQ(reversed["LONGUE~1"], made.front());
        EXPECT_EQ(entryNamed(user.onC("d"), shortNames(user.onC("d"))[made.back()]), made.back());
    }
    user.makeFile("e/LONGUE~1");
    user.makeFile("e/longue liste");
    EXPECT_EQ(entryNamed(user.onC("e"), "longue~2"), "longue liste");
}

}  // namespace
}  // namespace tovera::testing
