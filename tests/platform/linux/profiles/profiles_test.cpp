#include "platform/profiles.h"

#include <gtest/gtest.h>

#include "frame/last_error.h"
#include "platform/file_names.h"
#include "platform/linux/temporary_folder.h"
#include "platform/system_facts.h"

namespace tovera::testing {
namespace {

using namespace std::string_literals;

AnsiText ansi(const char* text) {
    return text ? AnsiText{text} : AnsiText{{}, true};
}

struct LinuxKernel32Test : ::testing::Test {
    struct Answer {
        I4 count;
        std::string buffer;
        bool operator==(const Answer&) const = default;
    };

    Answer read(const char* section, const char* key, const std::string& byDefault, std::size_t size) {
        AnsiText buffer{std::string(size, '#')};
        const auto count =
            profiles.GetPrivateProfileStringA(ansi(section), ansi(key), {byDefault}, buffer, file);
        return {count, buffer.bytes};
    }
    bool write(const char* section, const char* key, const char* value) {
        return profiles.WritePrivateProfileStringA(ansi(section), ansi(key), ansi(value), file) != 0;
    }

    UserFolder user;
    Profiles& profiles = homeProfiles();
    AnsiText file{"C:\\a.ini"};
};

TEST_F(LinuxKernel32Test, ProfileEntriesAreRead) {
    const char* const none = "(none)";
    const std::tuple<std::string, const char*, const char*, std::string> rows[] = {
        {"[S]\r\nK=v\r\n", " s ", "\tk ", "v"},
        {"  [ s ] ; rest\r\n \t k \t = \t v w \x1A\r\n", "s", "k", "v w"},
        {"[Caf\xC9]\n\xE9t\xE9=\x80", "caf\xE9", "\xC9T\xC9", "\x80"},
        {"[s]\nk=1\nK=2\n[s]\nk=3", "s", "k", "1"},
        {"[s]\n[s]\nk=3", "s", "k", none},
        {"[s]\nk\nk=2", "s", "k", none},
        {"[s]\nk==a=b", "s", "k", "=a=b"},
        {"[s]\na=b=c", "s", "a=b", none},
        {"[s]\nkk=1\n;k=3\nk=2", "s", "k", "2"},
        {"[a]b]\nk=v", "a]b", "k", "v"},
        {"[s]\n[t\n=1\nk=v", "s", "k", "v"},
        {"k=v\n[s]\nk=w", "", "k", "v"},
        {"[s]\n=v", "s", "", "v"},
        {"", "s", "k", none},
        {"[s]\nk=a\0b\n"s, "s", "k", "a"},
        {"[s]\r\na=a line of more than sixteen bytes\r\nb=another one of them\rk=v\n", "s", "k", "v"},
        {"[s]\nk=\" a \"", "s", "k", " a "},  // one pair of quotation marks goes
        {"[s]\nk=\"'a'\"", "s", "k", "'a'"},
        {"[s]\nk='a\"", "s", "k", "'a\""},
        {"[s]\nk='", "s", "k", "'"},
        {"[s]\nk=''", "s", "k", ""},
        {"[s]\nk=aba", "s", "k", "aba"},
        {"\xEF\xBB\xBF[\xC3\x89]\nk=\xE2\x82\xAC\xE2\x98\x83", "\xE9", "K", "\x80?"},
        {"\xFF\xFE[\0\xC9\0]\0\n\0k\0=\0\xAC\x20\x03\x26"s, "\xE9", "k", "\x80?"},
        {"\xFE\xFF\0[\0\xC9\0]\0\n\0k\0=\x20\xAC\x26\x03"s, "\xE9", "k", "\x80?"}};
    for (const auto& [text, section, key, value] : rows) {
        user.makeFile("A.ini", text);
        const auto answer = read(section, key, none, 50);
        EXPECT_EQ(answer.buffer.substr(0, static_cast<std::size_t>(answer.count)), value) << text;
    }
}

TEST_F(LinuxKernel32Test, BuffersAreFilledByTheRulesOfProfiles) {
    const auto l = "l=" + std::string(300, 'l');
    user.makeFile("a.ini",
                  "z=1\n[s]\nk = v w\r\n;c=2\nd\n\n=e\nempty=\nK=2\n[ t u ]\n" + l + "\n[]\nh=1\n[S]");
    const std::tuple<const char*, const char*, std::string, std::size_t, Answer> rows[] = {
        {"s", "k", "d", 5, {3, "v w\0#"s}},
        {"s", "k", "d", 3, {2, "v \0"s}},
        {"s", "k", "d", 1, {0, "\0"s}},
        {"s", "k", "d", 0, {0, ""}},
        {"s", "empty", "d", 3, {0, "\0##"s}},
        {"T U", "l", "d", 255, {254, std::string(254, 'l') + '\0'}},
        {"s", "x", " 'd'  ", 8, {4, " 'd'\0###"s}},
        {"s", "x", std::string(300, 'd'), 255, {254, std::string(254, 'd') + '\0'}},
        {"s", nullptr, "d", 12, {10, "k\0empty\0K\0\0#"s}},
        {"s", nullptr, "d", 11, {9, "k\0empty\0K\0\0"s}},
        {"s", nullptr, "d", 10, {8, "k\0empty\0\0\0"s}},
        {"s", nullptr, "d", 2, {0, "\0#"s}},
        {"", nullptr, "d", 4, {2, "z\0\0#"s}},
        {"x", nullptr, "d ", 4, {1, "d\0##"s}},
        {nullptr, "k", "d", 12, {8, "s\0t u\0S\0\0###"s}}};
    for (const auto& [section, key, byDefault, size, answer] : rows)
        EXPECT_EQ(read(section, key, byDefault, size), answer) << ::testing::PrintToString(answer.buffer);
    file = {"C:\\none.ini"};
    EXPECT_EQ(read("s", "k", "d", 4), (Answer{1, "d\0##"s}));
    EXPECT_EQ(read(nullptr, nullptr, "d", 4), (Answer{0, "\0###"s}));
}

TEST_F(LinuxKernel32Test, ProfilesChangeInOnePlace) {
    const std::string two = "[r]\r\n;c\r\nk=1\r\nK=2\r\n\r\n[s]\r\nk=3\r\n[R]\r\nk=4";
    const std::tuple<std::string, const char*, const char*, const char*, std::string> rows[] = {
        {"", "s", "k", "v", "[s]\r\nk=v\r\n"},
        {"; c\n[s] x\n Key \t= \told  \n\nz=1\n", "S", "KEY", "new", "; c\n[s] x\n Key \t= \tnew  \n\nz=1\n"},
        {"[s]\nk=\n", "s", "k", "  v ", "[s]\nk=v \n"},
        {"[s]\nk \n", "s", "k", "v", "[s]\nk=v \n"},
        {"[s]\nk=v\n", "s", "k", " v", "[s]\nk=v\n"},
        {"[s]\na=1\n\n\n[t]\nb=2\n", "s", "k", "v", "[s]\na=1\nk=v\n\n\n[t]\nb=2\n"},
        {"[s]\n;c\n\x1A", "s", "k", "v", "[s]\n;c\nk=v\n\x1A"},
        {"[s]\na=1", "s", "k", "v", "[s]\na=1\nk=v\n"},
        {"[r]\ra=1", "s", "k", "v", "[r]\ra=1\r[s]\rk=v\r"},
        {"x\n\n[s]\n", "", "k", "v", "x\nk=v\n\n[s]\n"},
        {"a\0b"s, " s ", " k ", "v", "a\0b\r\n[s]\r\nk=v\r\n"s},
        {"[s]\nk=1\nk=2\n", "s", "k", "3", "[s]\nk=3\nk=2\n"},
        {two, "R", "k", nullptr, "[r]\r\n;c\r\nK=2\r\n\r\n[s]\r\nk=3\r\n[R]\r\nk=4"},
        {two, " r", nullptr, "v", "[s]\r\nk=3\r\n[R]\r\nk=4"},
        {two, "s", "x", nullptr, two},
        {two, "x", nullptr, nullptr, two},
        {"\xEF\xBB\xBF[\xC3\x89]\nk=\xE2\x98\x83", "\xE9", "k", "\xE8", "\xEF\xBB\xBF[\xC3\x89]\nk=\xC3\xA8"},
        {"\xFF\xFE[\0\xC9\0]\0\n\0k\0=\0\x03\x26"s, "\xE9", "k", "\xE8",
         "\xFF\xFE[\0\xC9\0]\0\n\0k\0=\0\xE8\0"s},
        {"\xFE\xFF\0[\0\xC9\0]\0\n\0k\0=\x26\x03"s, "\xE9", "k", "\xE8",
         "\xFE\xFF\0[\0\xC9\0]\0\n\0k\0=\0\xE8"s}};
    for (const auto& [before, section, key, value, after] : rows) {
        user.makeFile("a.ini", before);
        std::filesystem::create_hard_link(user.onC("a.ini"), user.onC("before"));
        EXPECT_TRUE(write(section, key, value)) << before;
        EXPECT_EQ(user.textOf("a.ini"), after) << before;
        EXPECT_EQ(std::filesystem::equivalent(user.onC("a.ini"), user.onC("before")), before == after)
            << "written for nothing";
        std::filesystem::remove(user.onC("before"));
    }
    // What can't be written back as it was is left alone.
    for (const auto& bytes : {"\xEF\xBB\xBF[s]\nk=\xFF"s, "\xFF\xFE[\0s\0]\0\n"s}) {
        user.makeFile("a.ini", bytes);
        EXPECT_TRUE(!write("s", "k", "v") && lastError() != 0);
        EXPECT_EQ(user.textOf("a.ini"), bytes);
    }
}

TEST_F(LinuxKernel32Test, ProfilesAreFoundByTheirNames) {
    for (const auto& name : {"bare.ini"s, "c:/windows/BARE.INI"s, "Z:" + user.onC("windows/Bare.ini")}) {
        file = {name};
        EXPECT_TRUE(write("s", name.c_str(), "1")) << name;
    }
    EXPECT_EQ(std::ranges::count(user.textOf("WINDOWS/bare.ini"), '\n'), 4);
    EXPECT_NE(profiles.WriteProfileStringA({"s"}, {"a"}, {"1"}), 0);
    AnsiText buffer{"####"};
    EXPECT_EQ(profiles.GetProfileStringA({"s"}, {"a"}, {"d"}, buffer), 1);
    EXPECT_EQ(user.textOf("WINDOWS/WIN.INI"), "[s]\r\na=1\r\n");
    EXPECT_FALSE(write(nullptr, "a", "1"));
    for (const auto* bad : {"", "C:\\none\\a.ini", "B:\\a.ini", "C:\\windows", "\\\\server\\a.ini"}) {
        file = {bad};
        EXPECT_TRUE(!write("s", "a", "1") && lastError() != 0) << bad;
    }
    EXPECT_FALSE(std::filesystem::exists(user.onC("none")));
}

TEST_F(LinuxKernel32Test, GivesPathsThatFitTheBuffer) {
    AnsiText buffer;
    EXPECT_EQ(homeSystemFacts().GetSystemDirectoryA(buffer), 20);
    EXPECT_TRUE(std::filesystem::is_directory(user.onC("WINDOWS/SYSTEM32")));
    const Answer answers[] = {{10, "C:\\WINDOWS\0#"s}, {10, "C:\\WINDOWS\0"s}, {11, "##########"}};
    for (const auto& [count, expected] : answers) {
        buffer = {std::string(expected.size(), '#')};
        EXPECT_EQ(homeSystemFacts().GetWindowsDirectoryA(buffer), count);
        EXPECT_EQ(buffer.bytes, expected);
    }
    buffer = {"####"};
    EXPECT_EQ(homeFileNames().GetLongPathNameA({"C:\\none"}, buffer), 0);
    EXPECT_EQ(homeFileNames().GetShortPathNameA(ansi(nullptr), buffer), 0);
    EXPECT_EQ(buffer.bytes, "####");
}

}  // namespace
}  // namespace tovera::testing
