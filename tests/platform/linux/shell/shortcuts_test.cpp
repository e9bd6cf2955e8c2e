#include "frame/utf8.h"
#include "platform/files.h"
#include "platform/linux/child_process.h"
#include "platform/linux/own_desktop.h"
#include "platform/linux/own_display.h"
#include "platform/linux/shell/desktop_entry.h"
#include "platform/linux/shell/shell_link.h"
#include "shell/cls_windows.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

std::string permissionsOf(const std::string& path) {
    const auto bits = static_cast<unsigned>(std::filesystem::status(path).permissions());
    return {char('0' + (bits >> 6 & 7)), char('0' + (bits >> 3 & 7)), char('0' + (bits & 7))};
}

struct LinuxShortcuts : ::testing::Test {
    LinuxShortcuts() { desktop.addProgram("prog"); }
    ~LinuxShortcuts() override { std::filesystem::current_path(before); }

    Bstr program() {
        auto path = "Z:" + (desktop / "bin/prog");
        std::ranges::replace(path, '/', '\\');
        return fromUtf8(path);
    }
    void make(Bstr name, Bstr target, Bstr arguments, Bstr& place) {
        Cls_Windows(platform).CreationRaccourci(name, target, arguments, place);
    }

    OwnDesktop desktop;
    std::filesystem::path before = std::filesystem::current_path();
    struct : TestServices {
        ComponentFacts facts() override { return home().services.facts(); }
        ScreenFacts screen() override { return home().services.screen(); }
        std::string toAnsi(std::u16string_view text) override { return home().services.toAnsi(text); }
        std::u16string fromAnsi(std::string_view bytes) override { return home().services.fromAnsi(bytes); }
    } services;
    Platform platform = home().with(services);
    std::string autostart = desktop / "config/autostart/";
};

TEST(LinuxShellLink, IsReadAsItWasWritten) {
    const ShellLink link{u"Z:\\opt\\\u00E9t\u00E9 \u20AC\\prog", u"Z:\\opt", u"/a \"b c\" %1"};
    const auto bytes = linkBytes(link);
    const auto read = readLink(bytes);
    ASSERT_TRUE(read);
    EXPECT_EQ(read->target + u'|' + read->folder + u'|' + read->arguments,
              link.target + u'|' + link.folder + u'|' + link.arguments);
    for (std::size_t size = 0; size + 4 < bytes.size(); ++size)
        EXPECT_FALSE(readLink(bytes.substr(0, size))) << size;
}

TEST(LinkFile, IsTheOneThatTheShellReads) {
    // The tests of the other home have the shell read this file.
    EXPECT_EQ(linkBytes({u"C:\\windows\\notepad.exe", u"C:\\windows\\", u"/p \"\u00E9t\u00E9 \u0416\""}),
              contentOf(TOVERA_ROOT "/tests/fixtures/lien.lnk"));
}

TEST_F(LinuxShortcuts, StartTheirProgramWithTheVeryArguments) {
    Bstr place;
    const std::u16string arguments = u"-a \"b c\" $HOME %f `id` \"d\\\"e\" C:\\x";
    make(u"\u00C9diteur", program(), arguments, place);
    EXPECT_TRUE(services.boxes.empty());
    auto startup = "Z:" + autostart;
    std::ranges::replace(startup, '/', '\\');
    EXPECT_EQ(place, Bstr(fromUtf8(startup)));
    const auto link = readLink(contentOf(autostart + "Éditeur.lnk"));
    ASSERT_TRUE(link);
    EXPECT_EQ(Bstr(link->target), program());
    EXPECT_EQ(Bstr(link->arguments), Bstr(arguments));
    const auto entry = autostart + "Éditeur.desktop";
    EXPECT_EQ(permissionsOf(entry), "644");
    EXPECT_FALSE(std::filesystem::exists(desktop / "data/tovera/drive_c/WINDOWS/SYSTEM32/Éditeur.lnk"));
    if (machineHas("/usr/bin/desktop-file-validate")) {
        EXPECT_EQ(std::system(("/usr/bin/desktop-file-validate '" + entry + "'").c_str()), 0);
    }
    if (!machineHas("/usr/bin/gio")) GTEST_SKIP() << "no gio here to start the entry";
    EXPECT_EQ(std::system(("/usr/bin/gio launch '" + entry + "'").c_str()), 0);
    EXPECT_EQ(desktop.record(),
              "[prog][-a][b c][$HOME][%f][`id`][d\"e][" + (desktop / "data/tovera/drive_c/x") + "]\n");
}

TEST_F(LinuxShortcuts, TheEntryGoesWhereTheLinkGoes) {
    const auto onC = [&](const std::string& name) { return desktop / ("data/tovera/drive_c/" + name); };
    const auto exists = [&](const std::string& name) { return std::filesystem::exists(onC(name)); };
    Bstr place = u"C:\\";
    make(u"Lien", program(), u"x", place);
    EXPECT_EQ(permissionsOf(onC("Lien.desktop")), "755");
    auto& files = home().port<Files>();
    files.rename(u"C:\\lien.LNK", u"C:\\Autre.lnk");
    EXPECT_TRUE(exists("Autre.lnk") && exists("Autre.desktop") && !exists("Lien.desktop"));
    EXPECT_TRUE(isEntryOf(contentOf(onC("Autre.desktop")), "Autre.lnk"));
    files.rename(u"C:\\Autre.lnk", u"C:\\Autre.LNK");
    EXPECT_TRUE(isEntryOf(contentOf(onC("Autre.desktop")), "Autre.LNK"));
    // Where the entry can't be written, both stay as they were.
    EXPECT_TRUE(succeedsOnFullDisk(16, [&](auto&&) {
        const auto error = errorOf([&] { files.rename(u"C:\\Autre.lnk", u"C:\\Plein.lnk"); });
        return error == 61 && exists("Autre.LNK") && exists("Autre.desktop") && !exists("Plein.lnk") ? 0 : 1;
    }));
    files.rename(u"C:\\Autre.LNK", u"C:\\Autre.lnk");
    files.copy(u"C:\\Autre.lnk", u"C:\\Lien.lnk");
    files.rename(u"C:\\Autre.lnk", u"C:\\texte.txt");
    EXPECT_FALSE(exists("Autre.desktop"));
    files.remove(u"C:\\Lien.lnk");
    EXPECT_FALSE(exists("Lien.lnk") || exists("Lien.desktop"));
    // An entry that bears the name but not the mark is the user's.
    std::ofstream(onC("Mien.desktop")) << "[Desktop Entry]\nX-Tovera-Link=Autre.lnk\n";
    make(u"Mien", program(), u"", place);
    ASSERT_EQ(services.boxes.size(), 1U);
    EXPECT_EQ(services.boxes[0].text.view().substr(0, 4), u"58\r\n");
    EXPECT_FALSE(exists("Mien.lnk"));
    std::ofstream(onC("Mien.lnk")) << "x";
    files.remove(u"C:\\Mien.lnk");
    EXPECT_TRUE(exists("Mien.desktop"));
}

TEST_F(LinuxShortcuts, DocumentsMissingTargetsAndBadNames) {
    const auto onC = desktop / "data/tovera/drive_c/";
    std::ofstream(onC + "a;b.txt") << "x";
    Bstr place = u"C:\\";
    make(u"Doc", u"C:\\A;B.TXT", u"", place);
    EXPECT_NE(contentOf(onC + "Doc.desktop").find("\nExec=\"xdg-open\" \"" + onC + "a;b.txt\"\n"),
              std::string::npos);
    make(u"Absent", u"C:\\absent.exe", u"", place);
    EXPECT_EQ(Bstr(readLink(contentOf(onC + "Absent.lnk"))->target), u"C:\\absent.exe");
    make(u"Nu", u"prog", u"", place);
    EXPECT_EQ(Bstr(readLink(contentOf(onC + "Nu.lnk"))->target), program());
    EXPECT_TRUE(services.boxes.empty());
    for (const auto* const name : {u"a/b", u"..\\x"}) make(name, program(), u"", place);
    EXPECT_EQ(services.boxes.size(), 2U);
    place = u"C:\\aucun";
    make(u"Perdu", program(), u"", place);
    EXPECT_EQ(services.boxes.back().text.view().substr(0, 4), u"76\r\n");
}

}  // namespace
}  // namespace tovera::testing
