#include "platform/linux/services.h"

#include <cstdlib>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "conversion/cls_conversion.h"
#include "platform/linux/code_pages.h"
#include "platform/linux/launch.h"
#include "platform/linux/regional.h"
#include "platform/linux/temporary_folder.h"
#include "platform/linux/user32.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

TEST(LinuxCodePages, AnsiBytesAndCharactersAreOneToOne) {
    for (int code = 0; code < 256; ++code) {
        const auto byte = static_cast<char>(code);
        EXPECT_EQ(ansiByte(ansiCharacter(byte)), byte);
        EXPECT_TRUE((code >= 0x80 && code < 0xA0) || ansiCharacter(byte) == code) << code;
    }
    EXPECT_EQ(toAnsi1252(u"\u20AC\u0152\u0081\u0080\u0141\U0001F600"),
              "\x80\x8C\x81???"
              "?");
    EXPECT_EQ(fromAnsi1252("\x80\x9F\x9D"), u"\u20AC\u0178\u009D");
}

TEST(LinuxCodePages, OemTextToAnsi) {
    // 0x80 to 0xFF of code page 850, in ANSI; what 1252 lacks becomes its nearest sign.
    constexpr std::u16string_view upper =
        u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒáíóúñÑªº¿®¬½¼¡«»¦¦¦¦¦ÁÂÀ©¦¦++¢¥+"
        u"+--+-+ãÃ++--¦-+¤ðÐÊËÈiÍÎÏ++¦_¦Ì¯ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±=¾¶§÷¸°¨·¹³²¦\u00A0";
    for (int code = 0; code < 256; ++code) {
        const auto expected =
            code < 0x80 ? static_cast<char16_t>(code) : upper[static_cast<std::size_t>(code) - 0x80];
        EXPECT_EQ(ansiCharacter(oemToAnsi(static_cast<char>(code))), expected) << code;
    }
    LinuxUser32 user32;
    const struct {
        std::string_view source, target, after;
    } rows[] = {
        // clang-format off
        {"\x82t\x82", "######", {"\xE9t\xE9\0##", 6}}, {"abc", "###", "abc"}, {"abcdef", "##", "ab"},
        {{"a\0b", 3}, "###", {"a\0#", 3}}, {"", "##", {"\0#", 2}}, {"a", "", ""},
        // clang-format on
    };
    for (const auto& row : rows) {
        const AnsiText source{std::string(row.source)};
        AnsiText target{std::string(row.target)};
        EXPECT_NE(user32.OemToCharA(source, target), 0);
        EXPECT_EQ(target.bytes, row.after);
    }
    AnsiText target{"#"};
    EXPECT_EQ(user32.OemToCharA(AnsiText{"", true}, target), 0);
    EXPECT_EQ(target.bytes, "#");

    Bstr typed = u"\u201A\u20AC";
    Bstr ansi = u"....";
    EXPECT_EQ(Cls_Conversion(home()).ConvertirOemAnsi(typed, ansi), 1);
    EXPECT_EQ(ansi, Bstr(std::u16string(u"éÇ\0.", 4)));
}

/// What a launched command leaves on the standard output that it shares with us, and its exit status.
std::string outputOf(std::string_view commandLine) {
    int ends[2];
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const int kept = dup(STDOUT_FILENO);
    fflush(stdout);
    dup2(ends[1], STDOUT_FILENO);
    const auto process = static_cast<pid_t>(launchProgram(commandLine));
    dup2(kept, STDOUT_FILENO);
    close(kept);
    close(ends[1]);
    std::string output;
    char c = 0;
    while (read(ends[0], &c, 1) == 1) output += c;
    close(ends[0]);
    EXPECT_GT(process, 0);
    EXPECT_EQ(waitpid(process, nullptr, 0), process);
    return output;
}

TEST(LinuxLaunch, WordsOfTheCommandLine) {
    EXPECT_EQ(outputOf(R"(printf [%s] a "b  c" d"e f"g   "" $HOME * ; | x)"),
              "[a][b  c][de fg][][$HOME][*][;][|][x]");
    EXPECT_EQ(outputOf("  \"/usr/bin/printf\"  é  "), "é");
    for (const auto missing : {"/nowhere/program", "no-such-program-here -x", "/etc/passwd/x", "\"\" a"}) {
        EXPECT_EQ(errorOf([&] { launchProgram(missing); }), 53) << missing;
    }
    for (const auto refused : {"", "   ", "/etc/passwd", "/tmp"}) {
        EXPECT_EQ(errorOf([&] { launchProgram(refused); }), 5) << refused;
    }
}

TEST(LinuxServices, MessageBoxesFactsAndObjects) {
    auto& services = home().services;
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(services.messageBox(u"Été \u20AC", 16, u"ERROR"), 1);
    EXPECT_EQ(services.messageBox(u""), 1);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "[ERROR] Été €\n[HoldDLL] \n");
    EXPECT_EQ(errorOf([&] { services.createObject(u"Nothing.Here"); }), 429);
    const auto facts = services.facts();
    EXPECT_FALSE(facts.fileName.empty());
    EXPECT_EQ(facts.folder[0], u'/');
}

/// The settings under a locale of this folder of locales, or of the system.
RegionalSettings settingsUnder(const char* locale, const char* folder) {
    setenv("LC_ALL", locale, 1);
    setenv("LOCPATH", folder, 1);
    const auto settings = userRegionalSettings();
    unsetenv("LOCPATH");
    unsetenv("LC_ALL");
    return settings;
}

TEST(LinuxServices, RegionalSettingsOfTheLocale) {
    const TemporaryFolder folder;
    for (const auto plain : {"C", "xx_XX.not-installed"}) {
        const auto settings = settingsUnder(plain, folder.path().c_str());
        EXPECT_EQ(settings.decimalSeparator, u'.');
        EXPECT_EQ(settings.thousandsSeparator, u',');
        EXPECT_EQ(settings.dateOrder, DateOrder::MonthDayYear);
        EXPECT_EQ(settings.latestTwoDigitYear, 2029);
    }
    const auto make = "localedef -i fr_FR -f UTF-8 " + (folder / "fr_FR.UTF-8") + " 2>/dev/null";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "no French locale can be made here";
    const auto french = settingsUnder("fr_FR.UTF-8", folder.path().c_str());
    EXPECT_EQ(french.decimalSeparator, u',');
    EXPECT_EQ(french.thousandsSeparator, u'\u202F');
    EXPECT_EQ(french.dateOrder, DateOrder::DayMonthYear);
}

}  // namespace
}  // namespace tovera::testing
