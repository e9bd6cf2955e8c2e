#include "frame/utf8.h"
#include "platform/linux/answering_display.h"
#include "platform/linux/child_process.h"
#include "platform/linux/shell/dialogs.h"
#include "platform/linux/shell/folder_picker.h"
#include "shell/cls_windows.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

/// A desktop with a program for texts.
struct LinuxDocuments : ::testing::Test {
    LinuxDocuments() {
        desktop.addProgram("lecteur");
        std::filesystem::create_directories(desktop / "data/applications");
        std::ofstream(desktop / "data/applications/lecteur.desktop")
            << "[Desktop Entry]\nType=Application\nName=L\nExec=lecteur --entry %f\nMimeType=text/plain;\n";
        std::ofstream(desktop / "config/mimeapps.list")
            << "[Default Applications]\ntext/plain=lecteur.desktop\n";
        std::ofstream(onC("un texte.txt")) << "texte\n";
        std::ofstream(onC("octets"), std::ios::binary) << std::string("\0\1\2\3", 4);
    }
    std::string onC(const std::string& name) const { return desktop / ("data/tovera/drive_c/" + name); }
    std::string run(const std::string& step) const { return desktop.tovera({"Cls_Windows", step}); }
    std::string windowsPathTo(std::string path) const {
        std::ranges::replace(path, '/', '\\');
        return "Z:" + path;
    }

    OwnDesktop desktop;
};

TEST_F(LinuxDocuments, AreOpenedByTheDesktopsProgram) {
    const auto program = windowsPathTo(desktop / "bin/lecteur");
    if (run("TrouveExecutable(\"C:\\un texte.txt\")") == "\n") GTEST_SKIP() << "no GIO here";
    EXPECT_EQ(run("TrouveExecutable(\"c:\\UN TEXTE.TXT\")"), program + "\n");
    EXPECT_EQ(run("TrouveExecutable(\"" + program + "\")"), program + "\n") << "a program is its own";
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(desktop / "bin");
    for (const auto* const relative : {"lecteur", ".\\LECTEUR"})
        EXPECT_EQ(run("TrouveExecutable(\"" + std::string(relative) + "\")"), program + "\n") << relative;
    std::filesystem::current_path(before);
    EXPECT_EQ(run("ExecuteFichier(\"C:\\un texte.txt\")"), program + " C:\\un texte.txt\n");
    EXPECT_EQ(desktop.record(), "[lecteur][--entry][" + onC("un texte.txt") + "]\n") << "as its entry says";
    // What tells of the host's own start stays with the host, also where the desktop's library starts it.
    std::ofstream(desktop / "bin/lecteur")
        << "#!/bin/sh\n"
           "echo \"${DESKTOP_STARTUP_ID-none}${XDG_ACTIVATION_TOKEN-none}\" "
           ">\"$TOVERA_RECORD\"\n";
    for (const auto* const own : {"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"})
        desktop.variables.set(own, "mine");
    run("ExecuteFichier(\"C:\\un texte.txt\")");
    EXPECT_EQ(desktop.record(), "nonenone\n");
    const std::pair<const char*, const char*> failures[] = {{"C:\\aucun.txt", "Fichier non trouvé\n"},
                                                            {"C:\\aucun\\a.txt", "Répertoire non trouvé\n"},
                                                            {"C:\\octets", "no association\n"},
                                                            {"", "Fichier non trouvé\n"}};
    for (const auto& [path, text] : failures) {
        EXPECT_EQ(run("ExecuteFichier(\"" + std::string(path) + "\")"), text);
        EXPECT_EQ(run("TrouveExecutable(\"" + std::string(path) + "\")"), "\n");
    }
    std::ofstream(onC("autre"), std::ios::binary)
        << "\x7F"
           "ELF"
        << std::string(14, '\1') << "\x08\x00" << std::string(60, '\0');
    EXPECT_EQ(run("ExecuteFichier(\"C:\\autre\")"), "Mauvais format\n");
}

TEST_F(LinuxDocuments, GoToTheBinWithTheirOrigin) {
    std::filesystem::create_directories(onC("dossier"));
    std::ofstream(onC("dossier/x")) << "x";
    std::filesystem::create_symlink(onC("dossier"), onC("lien"));
    for (const auto* const name : {"lien", "un texte.txt", "DOSSIER\\"})
        EXPECT_EQ(run("Effacer_FichierDossier(\"C:\\" + std::string(name) + "\")"), "Empty\n");
    const auto bin = desktop / "data/Trash/";
    if (!std::filesystem::exists(bin)) GTEST_SKIP() << "no GIO here";
    EXPECT_EQ(contentOf(bin + "files/un texte.txt"), "texte\n");
    EXPECT_TRUE(std::filesystem::exists(bin + "files/dossier/x"));
    EXPECT_TRUE(std::filesystem::is_symlink(bin + "files/lien"));
    EXPECT_NE(contentOf(bin + "info/un texte.txt.trashinfo").find("drive_c/un%20texte.txt\n"),
              std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(onC("un texte.txt")) || std::filesystem::exists(onC("dossier")));
}

TEST_F(LinuxDocuments, WhatTheUserLivesOnIsLeftAlone) {
    std::ofstream(onC("Deux")) << "x";
    std::ofstream(onC("dEUX")) << "y";
    const auto home = desktop / "";
    for (const auto& path : {std::string("C:\\"), std::string("C:"), std::string("Z:\\"), std::string("/"),
                             std::string("/proc"), home, home + "data", home + "data/tovera/../tovera/",
                             std::string("C:\\."), std::string("C:\\DEUX")})
        EXPECT_EQ(run("Effacer_FichierDossier(\"" + path + "\")"), "Empty\n");
    for (const auto* const name : {"Deux", "dEUX", "un texte.txt"})
        EXPECT_TRUE(std::filesystem::exists(onC(name))) << name;
}

TEST(LinuxFolders, SpecialOnesAreTheUsersOwn) {
    OwnDesktop desktop;
    Cls_Windows object;
    const auto folder = [&](I4 number) { return toUtf8(object.GET_DossierSpecial(number)); };
    const auto windows = [&](std::string path) {
        path = "Z:" + (desktop / path) + "/";
        std::ranges::replace(path, '/', '\\');
        return path;
    };
    EXPECT_EQ(folder(0), windows("Desktop"));
    std::ofstream(desktop / "config/user-dirs.dirs")
        << "# x\nXDG_DESKTOP_DIR=\"$HOME/Bure\\\"au\"\n "
           "XDG_MUSIC_DIR=\"/srv/m\"\nXDG_PICTURES_DIR=\"relative\"\n";
    const std::pair<I4, std::string> rows[] = {{0, windows("Bure\"au")},
                                               {16, windows("Bure\"au")},
                                               {13, "Z:\\srv\\m\\"},
                                               {39, windows("Pictures")},
                                               {7, windows("config/autostart")},
                                               {0x8007, windows("config/autostart")},
                                               {26, windows("config")},
                                               {36, "C:\\WINDOWS\\"},
                                               {37, "C:\\WINDOWS\\SYSTEM32\\"},
                                               {8, "C:\\WINDOWS\\Recent\\"},
                                               {40, windows("").substr(0, windows("").size() - 1)},
                                               {22, "Z:\\usr\\share\\applications\\"},
                                               {3, ""},
                                               {12, ""},
                                               {57, ""},
                                               {-1, ""}};
    for (const auto& [number, path] : rows) EXPECT_EQ(folder(number), path) << number;
    for (const auto* const made : {"config/autostart", "data/tovera/drive_c/WINDOWS/Recent"})
        EXPECT_TRUE(std::filesystem::is_directory(desktop / made)) << made;
    EXPECT_FALSE(std::filesystem::exists(desktop / "Pictures"));
    folder(0x8000 + 39);
    EXPECT_TRUE(std::filesystem::is_directory(desktop / "Pictures"));
}

/// What the services show for a text, in a process without a terminal: on standard error.
std::string shownOnError(const OwnDesktop& desktop, std::u16string_view text,
                         I4 flags = messageFlags::information) {
    return resultOf(start([&] {
               dup2(open("/dev/null", O_RDONLY), 0);
               dup2(open((desktop / "error").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), 2);
               return home().services.messageBox(Bstr(text), flags, Bstr(u"-T\u00EAte")) - 1;
           })) == 0
               ? contentOf(desktop / "error")
               : "failed";
}

TEST(LinuxDialogs, ShowTextsAsTheyAre) {
    OwnDesktop desktop("KDE");
    for (const auto* const program : {"zenity", "kdialog"}) desktop.addProgram(program);
    const auto* const text = u"--<b>a & b</b>\\n\n`id` $(x)";
    EXPECT_EQ(shownOnError(desktop, text), "[-Tête] --<b>a & b</b>\\n\n`id` $(x)\n") << "no display";
    const AnsweringDisplay display(desktop);
    ASSERT_TRUE(display.isThere);
    EXPECT_EQ(shownOnError(desktop, text), "");
    EXPECT_EQ(desktop.record(),
              "[kdialog][--title=-Tête][--msgbox=<qt>--&lt;b>a &amp; b&lt;/b>\\\\n<br/>`id` $(x)</qt>]\n");
    EXPECT_EQ(shownOnError(desktop, u"x", messageFlags::stop), "");
    EXPECT_EQ(desktop.record(), "[kdialog][--title=-Tête][--error=<qt>x</qt>]\n");
    desktop.removeProgram("kdialog");
    EXPECT_EQ(shownOnError(desktop, u"x", messageFlags::stop), "");
    EXPECT_EQ(desktop.record(), "[zenity][--error][--no-markup][--title=-Tête][--text=x]\n");
    EXPECT_EQ(shownOnError(desktop, text), "");
    EXPECT_EQ(desktop.record(),
              "[zenity][--info][--no-markup][--title=-Tête][--text=--<b>a & b</b>\\\\n\n`id` $(x)]\n");
    desktop.removeProgram("zenity");
    EXPECT_EQ(shownOnError(desktop, text), "[-Tête] --<b>a & b</b>\\n\n`id` $(x)\n") << "no dialog program";
    // One that can't show anything at all ends at once and says so by its status.
    std::ofstream(desktop / "bin/zenity") << "#!/bin/sh\nexit 1\n";
    std::filesystem::permissions(desktop / "bin/zenity", std::filesystem::perms::owner_all);
    EXPECT_EQ(shownOnError(desktop, u"x"), "[-Tête] x\n");
}

TEST(LinuxDialogs, FoldersAreChosen) {
    OwnDesktop desktop("GNOME");
    EXPECT_EQ(chooseFolder(u"O\u00F9 ?", 0), "") << "nobody to ask";
    const AnsweringDisplay display(desktop);
    EXPECT_EQ(chooseFolder(u"O\u00F9 ?", 0), "");
    const auto answers = [&](const std::string& script) {
        std::ofstream(desktop / "bin/zenity") << "#!/bin/sh\nprintf '[%s]' \"$@\" >\"$TOVERA_RECORD\"\n"
                                              << script << '\n';
        std::filesystem::permissions(desktop / "bin/zenity", std::filesystem::perms::owner_all);
        return chooseFolder(u"O\u00F9 ?", 0x1234);
    };
    EXPECT_EQ(answers("echo '" + (desktop / "config") + "'"), desktop / "config");
    EXPECT_EQ(desktop.record(), "[--file-selection][--directory][--modal][--title=Où ?]");
    EXPECT_EQ(answers("echo /nowhere"), "");
    EXPECT_EQ(answers("exit 1"), "") << "cancelled";
    EXPECT_FALSE(askUser(u"?", u""));
    std::ofstream(desktop / "bin/zenity") << "#!/bin/sh\nexit 0\n";
    EXPECT_TRUE(askUser(u"?", u""));
}

}  // namespace
}  // namespace tovera::testing
