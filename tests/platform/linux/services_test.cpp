#include <cstdlib>
#include <iconv.h>

#include "conversion/cls_conversion.h"
#include "network/cls_internet.h"
#include "platform/home_services.h"
#include "platform/linux/regional.h"
#include "platform/linux/temporary_folder.h"
#include "platform/linux/text/code_pages.h"
#include "platform/object_registration.h"
#include "platform/oem_text.h"
#include "support/scripted_object.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

TEST(LinuxCodePages, MapEveryByte) {
    // 0x80 to 0xFF of code page 850, in ANSI; what 1252 lacks becomes its nearest sign.
    constexpr std::u16string_view oemUpper =
        u"ÇüéâäàåçêëèïîìÄÅÉæÆôöòûùÿÖÜø£Ø×ƒáíóúñÑªº¿®¬½¼¡«»¦¦¦¦¦ÁÂÀ©¦¦++¢¥+"
        u"+--+-+ãÃ++--¦-+¤ðÐÊËÈiÍÎÏ++¦_¦Ì¯ÓßÔÒõÕµþÞÚÛÙýÝ¯´\u00AD±=¾¶§÷¸°¨·¹³²¦\u00A0";
    for (std::size_t code = 0; code < 256; ++code) {
        const auto byte = static_cast<char>(code);
        EXPECT_EQ(ansiByte(ansiCharacter(byte)), byte);
        EXPECT_TRUE((code >= 0x80 && code < 0xA0) || ansiCharacter(byte) == code) << code;
        EXPECT_EQ(ansiCharacter(oemToAnsi(byte)), code < 0x80 ? code : oemUpper[code - 0x80]) << code;
    }
    // Every character, as the C library has it; the bytes that it leaves unassigned are the controls of their
    // number.
    const auto library = iconv_open("CP1252", "UTF-16LE");
    for (unsigned code = 0; code < 0x10000; ++code) {
        char character[2] = {static_cast<char>(code & 0xFFU), static_cast<char>(code >> 8U)};
        char byte = '?';
        char* from = character;
        char* to = &byte;
        std::size_t fromLeft = 2;
        std::size_t toLeft = 1;
        iconv(library, &from, &fromLeft, &to, &toLeft);
        iconv(library, nullptr, nullptr, nullptr, nullptr);
        for (const unsigned unassigned : {0x81U, 0x8DU, 0x8FU, 0x90U, 0x9DU})
            if (code == unassigned) byte = static_cast<char>(code);
        ASSERT_EQ(ansiByte(static_cast<char16_t>(code)), byte) << code;
    }
    iconv_close(library);
    EXPECT_EQ(toAnsi1252(u"\u20AC\u0152\u0081\u0080\u0141\U0001F600"), "\x80\x8C\x81" + std::string(4, '?'));
    EXPECT_EQ(fromAnsi1252("\x80\x9F\x9D"), u"\u20AC\u0178\u009D");
}

TEST(LinuxUser32, OemTextFillsItsTargetAndNoMore) {
    const std::tuple<std::string, std::string, std::string> rows[] = {
        {"\x82t\x82", "######", {"\xE9t\xE9\0##", 6}},
        {"abcdef", "##", "ab"},
        {{"a\0b", 3}, "###", {"a\0#", 3}},
        {"a", "", ""}};
    auto& oemText = homeOemText();
    for (const auto& [source, before, after] : rows) {
        AnsiText target{before};
        EXPECT_NE(oemText.OemToCharA({source}, target), 0);
        EXPECT_EQ(target.bytes, after);
    }
    AnsiText target{"#"};
    EXPECT_EQ(oemText.OemToCharA({"", true}, target), 0);
    Bstr typed = u"\u201A\u20AC";
    Bstr ansi = u"....";
    EXPECT_EQ(Cls_Conversion(home()).ConvertirOemAnsi(typed, ansi), 1);
    EXPECT_EQ(ansi, Bstr(std::u16string(u"éÇ\0.", 4)));
}

TEST(LinuxServices, MessageBoxesFactsAndObjects) {
    auto& services = home().services;
    ::testing::internal::CaptureStderr();
    EXPECT_EQ(services.messageBox(u"Été \u20AC", 16, u"ERROR"), 1);
    EXPECT_EQ(services.messageBox(u""), 1);
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "[ERROR] Été €\n[HoldDLL] \n");
    EXPECT_EQ(errorOf([&] { services.createObject(u"Nothing.Here"); }), 429);
    EXPECT_FALSE(services.facts().fileName.empty());
    EXPECT_FALSE(services.facts().folder.empty());
}

TEST(LinuxServices, ObjectsThatTheHostHasRegistered) {
    auto& services = home().services;
    const auto own = makeObject<Scripted>(Scripted::Members{});
    registerObject(u"Notes.Notessession", [&] { return own; });
    EXPECT_EQ(services.createObject(u"NOTES.notesSession"), own);
    Cls_Internet internet;
    Bstr text = u"x";
    ::testing::internal::CaptureStderr();
    internet.EcrireEmail_LotusNotes(text, text, text, text, True);
    EXPECT_NE(::testing::internal::GetCapturedStderr(), "") << "it is no Notes session";
    EXPECT_EQ(internet.NSession(), own);
    registerObject(u"notes.notessession", [] { return ObjectRef(); });
    EXPECT_EQ(errorOf([&] { services.createObject(u"Notes.Notessession"); }), 429);
    registerObject(u"Notes.Notessession", {});
    EXPECT_EQ(errorOf([&] { services.createObject(u"Notes.Notessession"); }), 429);
}

TEST(LinuxServices, RegionalSettingsOfTheLocale) {
    using Environment = std::vector<std::pair<const char*, const char*>>;
    const TemporaryFolder folder;
    const auto settingsUnder = [&](Environment environment) {
        for (const auto* name : {"LC_ALL", "LC_NUMERIC", "LC_TIME", "LC_CTYPE", "LANG"}) unsetenv(name);
        environment.emplace_back("LOCPATH", folder.path().c_str());
        for (const auto& [name, value] : environment) setenv(name, value, 1);
        const auto [decimal, thousands, order, latestTwoDigitYear] = userRegionalSettings();
        for (const auto& [name, value] : environment) unsetenv(name);
        return std::tuple(decimal, thousands, order, latestTwoDigitYear);
    };
    const std::tuple inC(u'.', u',', DateOrder::MonthDayYear, 2029);
    for (const auto* plain : {"C", "xx_XX.not-installed"}) EXPECT_EQ(settingsUnder({{"LC_ALL", plain}}), inC);
    for (const std::string name : {"fr_FR.UTF-8", "fr_FR.ISO-8859-1", "de_CH.ISO-8859-1"}) {
        const auto dot = name.find('.');
        const auto make = "localedef -i " + name.substr(0, dot) + " -f " + name.substr(dot + 1) + " " +
                          (folder / name) + " 2>/dev/null";
        if (std::system(make.c_str()) != 0) GTEST_SKIP() << "no locales can be made here";
    }
    const std::tuple inFrance(u',', u'\u202F', DateOrder::DayMonthYear, 2029);
    const std::pair<Environment, std::tuple<char16_t, char16_t, DateOrder, I4>> rows[] = {
        {{{"LC_ALL", "fr_FR.UTF-8"}}, inFrance},
        {{{"LANG", "fr_FR.UTF-8"}, {"LC_CTYPE", "UTF-8"}}, inFrance},
        {{{"LANG", "fr_FR.UTF-8"}, {"LC_TIME", "C"}}, {u',', u'\u202F', DateOrder::MonthDayYear, 2029}},
        {{{"LANG", "fr_FR.UTF-8"}, {"LC_NUMERIC", "xx_XX"}}, {u'.', u',', DateOrder::DayMonthYear, 2029}},
        {{{"LANG", "fr_FR.ISO-8859-1"}}, {u',', u'\u00A0', DateOrder::DayMonthYear, 2029}},
        {{{"LANG", "C"}, {"LC_NUMERIC", "de_CH.ISO-8859-1"}}, {u'.', u'\'', DateOrder::MonthDayYear, 2029}}};
    for (const auto& [environment, settings] : rows)
        EXPECT_EQ(settingsUnder(environment), settings) << ::testing::PrintToString(environment);
}

}  // namespace
}  // namespace tovera::testing
