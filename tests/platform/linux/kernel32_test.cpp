#include "platform/linux/kernel32.h"

#include <gtest/gtest.h>

#include "frame/last_error.h"
#include "platform/linux/user_folder.h"

namespace tovera::testing {
namespace {

using namespace std::string_literals;

struct LinuxKernel32Test : ::testing::Test {
    struct Answer {
        I4 count;
        std::string buffer;
        bool operator==(const Answer&) const = default;
    };

    Answer read(const AnsiText& section, const AnsiText& key, const std::string& byDefault,
                std::size_t size) {
        AnsiText buffer{std::string(size, '#')};
        const auto count = kernel32.GetPrivateProfileStringA(section, key, {byDefault}, buffer, file);
        return {count, buffer.bytes};
    }

    UserFolder user;
    LinuxKernel32 kernel32;
    const AnsiText null{{}, true};
    AnsiText file{"C:\\profil.ini"};
};

TEST_F(LinuxKernel32Test, FillsTheBufferByTheRulesOfProfiles) {
    user.makeFile("Profil.ini", "[s]\nk='v w'\nempty=\nl=" + std::string(300, 'l') + "\nnul=a\0b\n[t]\n"s);
    const AnsiText s{"s"};
    EXPECT_EQ(read(s, {"k"}, "d", 5), (Answer{3, "v w\0#"s}));
    EXPECT_EQ(read(s, {"K\0rest"s}, "d", 3), (Answer{2, "v \0"s}));
    EXPECT_EQ(read(s, {"k"}, "d", 1), (Answer{0, "\0"s}));
    EXPECT_EQ(read(s, {"k"}, "d", 0), (Answer{0, ""}));
    EXPECT_EQ(read(s, {"empty"}, "d", 3), (Answer{0, "\0##"s}));
    EXPECT_EQ(read(s, {"nul"}, "d", 4), (Answer{1, "a\0##"s}));
    EXPECT_EQ(read(s, {"l"}, "d", 255), (Answer{254, std::string(254, 'l') + '\0'}));
    EXPECT_EQ(read(s, {"x"}, " 'd'  ", 8), (Answer{4, " 'd'\0###"s}));
    EXPECT_EQ(read(s, {"x"}, std::string(300, 'd'), 255), (Answer{254, std::string(254, 'd') + '\0'}));
    EXPECT_EQ(read(s, null, "d", 16), (Answer{14, "k\0empty\0l\0nul\0\0#"s}));
    EXPECT_EQ(read(s, null, "d", 15), (Answer{13, "k\0empty\0l\0nul\0\0"s}));
    EXPECT_EQ(read(s, null, "d", 10), (Answer{8, "k\0empty\0\0\0"s}));
    EXPECT_EQ(read(s, null, "d", 2), (Answer{0, "\0#"s}));
    EXPECT_EQ(read({"T"}, null, "d ", 4), (Answer{1, "d\0##"s}));
    EXPECT_EQ(read(null, {"k"}, "d", 8), (Answer{4, "s\0t\0\0###"s}));
    EXPECT_EQ(read(null, null, "d", 5), (Answer{3, "s\0t\0\0"s}));
    file = {"C:\\none.ini"};
    EXPECT_EQ(read(s, {"k"}, "d", 4), (Answer{1, "d\0##"s}));
    EXPECT_EQ(read(null, null, "d", 4), (Answer{0, "\0###"s}));
}

TEST_F(LinuxKernel32Test, WritesAndRemoves) {
    const AnsiText s{"s"};
    file = {"bare.ini"};
    EXPECT_NE(kernel32.WritePrivateProfileStringA(s, {"a"}, {"1"}, file), 0);
    EXPECT_NE(kernel32.WritePrivateProfileStringA(s, {"b"}, {"\xE9\0x"s}, file), 0);
    EXPECT_NE(kernel32.WritePrivateProfileStringA({"t"}, {"a"}, {""}, file), 0);
    EXPECT_EQ(user.textOf("WINDOWS/bare.ini"), "[s]\r\na=1\r\nb=\xE9\r\n[t]\r\na=\r\n");
    EXPECT_NE(kernel32.WritePrivateProfileStringA({"S"}, {"A"}, null, {"c:/windows/BARE.INI"}), 0);
    EXPECT_NE(kernel32.WritePrivateProfileStringA({"T"}, null, {"1"}, {"Z:" + user.onC("windows/BARE.ini")}),
              0);
    EXPECT_EQ(user.textOf("WINDOWS/bare.ini"), "[s]\r\nb=\xE9\r\n");
    EXPECT_NE(kernel32.WriteProfileStringA(s, {"a"}, {"1"}), 0);
    AnsiText buffer{"####"};
    EXPECT_EQ(kernel32.GetProfileStringA(s, {"a"}, {"d"}, buffer), 1);
    EXPECT_EQ(user.textOf("WINDOWS/WIN.INI"), "[s]\r\na=1\r\n");

    for (const auto* bad : {"", "C:\\none\\a.ini", "D:\\a.ini", "C:\\windows", "\\\\server\\a.ini"}) {
        EXPECT_EQ(kernel32.WritePrivateProfileStringA(s, {"a"}, {"1"}, {bad}), 0) << bad;
        EXPECT_NE(lastError(), 0) << bad;
    }
    EXPECT_EQ(kernel32.WritePrivateProfileStringA(null, {"a"}, {"1"}, file), 0);
    EXPECT_FALSE(std::filesystem::exists(user.onC("none")));
}

TEST_F(LinuxKernel32Test, GivesPathsThatFitTheBuffer) {
    user.makeFile("Un dossier/Fichier");
    const auto give = [](std::size_t size, auto entryPoint) {
        AnsiText buffer{std::string(size, '#')};
        const auto count = entryPoint(buffer);
        return Answer{count, buffer.bytes};
    };
    const auto windows = [&](AnsiText& buffer) { return kernel32.GetWindowsDirectoryA(buffer); };
    const auto system = [&](AnsiText& buffer) { return kernel32.GetSystemDirectoryA(buffer); };
    EXPECT_EQ(give(12, windows), (Answer{10, "C:\\WINDOWS\0#"s}));
    EXPECT_EQ(give(11, windows), (Answer{10, "C:\\WINDOWS\0"s}));
    EXPECT_EQ(give(10, windows), (Answer{11, "##########"}));
    EXPECT_EQ(give(0, system), (Answer{20, ""}));
    EXPECT_TRUE(std::filesystem::is_directory(user.onC("WINDOWS/SYSTEM32")));
    const AnsiText shortName{"C:\\undoss~1\\FICHIER"};
    const AnsiText longName{"C:\\un dossier\\fichier"};
    const AnsiText missing{"C:\\un dossier\\x"};
    const auto longForm = [&](const AnsiText& name) {
        return [&](AnsiText& buffer) { return kernel32.GetLongPathNameA(name, buffer); };
    };
    const auto shortForm = [&](const AnsiText& name) {
        return [&](AnsiText& buffer) { return kernel32.GetShortPathNameA(name, buffer); };
    };
    EXPECT_EQ(give(22, longForm(shortName)), (Answer{21, "C:\\Un dossier\\Fichier\0"s}));
    EXPECT_EQ(give(21, longForm(shortName)), (Answer{22, std::string(21, '#')}));
    EXPECT_EQ(give(20, shortForm(longName)), (Answer{19, "C:\\UNDOSS~1\\Fichier\0"s}));
    EXPECT_EQ(give(4, longForm(missing)), (Answer{0, "####"}));
    EXPECT_EQ(give(4, shortForm(null)), (Answer{0, "####"}));
}

}  // namespace
}  // namespace tovera::testing
