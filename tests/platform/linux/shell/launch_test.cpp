#include "platform/linux/shell/launch.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <termios.h>

#include "platform/linux/child_process.h"
#include "platform/linux/own_desktop.h"
#include "platform/linux/processes/spawn_settings.h"
#include "platform/linux/shell/command_line.h"
#include "platform/linux/shell/launchers.h"
#include "platform/linux/shell/programs.h"
#include "support/test_platform.h"

namespace tovera::testing {
namespace {

TEST(LinuxLaunch, WordsAsWindowsProgramsCutThem) {
    const std::pair<const char*, std::vector<std::string>> rows[] = {
        {R"(  p a "b  c" d"e f"g   "" $HOME * ; | é  )",
         {"p", "a", "b  c", "de fg", "", "$HOME", "*", ";", "|", "é"}},
        {R"("C:\a b\p.exe" "ab\"c" "\\" d)", {R"(C:\a b\p.exe)", R"(ab"c)", R"(\)", "d"}},
        {R"(p a\\\b d"e f"g a\\\"b a\\\\"b c" d)", {"p", R"(a\\\b)", "de fg", R"(a\"b)", R"(a\\b c)", "d"}},
        {R"(p a"b"" c d)", {"p", R"(ab" c d)"}},
        {"p\ta\\b c\\", {"p", "a\\b", "c\\"}},
        {"C:\\x\\ y", {"C:\\x\\", "y"}},
        {"   ", {}},
        {"", {}}};
    for (const auto& [line, expected] : rows) {
        std::vector<std::string> words;
        for (const auto& word : wordsOf(line)) words.push_back(word.text);
        EXPECT_EQ(words, expected) << line;
    }
}

TEST(LinuxLaunch, ProgramsAndTheirArguments) {
    const OwnDesktop desktop;
    desktop.addProgram("prog");
    desktop.addProgram("un programme");
    const auto onC = desktop / "data/tovera/drive_c";
    std::filesystem::create_directories(onC + "/Un Dossier");
    std::ofstream(onC + "/Un Dossier/lettre a.txt") << "x";
    std::filesystem::copy(desktop / "bin/prog", onC + "/Un Dossier/le prog");
    std::ofstream(desktop / "bin/plain") << "no program";
    const std::pair<std::string, std::string> rows[] = {
        {"prog -a \"b c\" $(touch x) `id` ; --", "[prog][-a][b c][$(touch][x)][`id`][;][--]"},
        {"prog C:\\UN~1 \"Z:\\usr\" X:\\y c:\\un dossier\\z",
         "[prog][" + onC + "/UN~1][/usr][X:\\y][" + onC + "/un][dossier\\z]"},
        {"prog C:\\un dossier\\LETTRE a.txt", "[prog][" + onC + "/Un Dossier/lettre a.txt]"},
        {"C:\\un dossier\\LE PROG x y", "[le prog][x][y]"},
        {"\"C:\\un dossier\\le prog\" x", "[le prog][x]"},
        {"Z:" + (desktop / "bin/un programme") + " été", "[un programme][été]"},
    };
    for (const auto& [line, expected] : rows) {
        const auto process = static_cast<pid_t>(launchCommand(line));
        EXPECT_GT(process, 1);
        const auto recorded = desktop.record();
        EXPECT_EQ(recorded.substr(0, expected.size()), expected) << line;
        EXPECT_TRUE(hasEnded(process));
    }
    const std::pair<std::string, I4> failures[] = {
        {"/nowhere/program", 53}, {"/etc/passwd/x", 53}, {"\"\" a", 53},   {"   ", 5},
        {"/etc/passwd", 5},       {"plain", 5},          {"absent x", 53}, {"/tmp", 53},
        {"sh -c x", 53}};
    for (const auto& [line, error] : failures)
        EXPECT_EQ(errorOf([&, l = line] { launchCommand(l); }), error) << line;
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "no child is left";
}

TEST(LinuxLaunch, NothingOfTheHostIsInherited) {
    OwnDesktop desktop;
    desktop.variables.set("DESKTOP_STARTUP_ID", "x");
    desktop.variables.set("XDG_ACTIVATION_TOKEN", "y");
    const auto program = desktop / "bin/facts";
    std::ofstream(program) << "#!/bin/sh\nexec >\"$TOVERA_RECORD.new\"\n"
                              "while read -r name value; do case $name in SigBlk:|SigIgn:) echo \"$value\";; "
                              "esac; done </proc/self/status\n"
                              "for n in 0 2 3 4 5 6 7 8 9 10 20 50; do [ -e /proc/self/fd/$n ] && "
                              "/bin/readlink /proc/self/fd/$n; done\n"
                              "echo \"${DESKTOP_STARTUP_ID-none}${XDG_ACTIVATION_TOKEN-none}\"\n"
                              "read -r pid a b c group session rest </proc/self/stat; echo $((group == "
                           << getpgid(0)
                           << "))\n"
                              "/bin/mv \"$TOVERA_RECORD.new\" \"$TOVERA_RECORD\"\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const int inherited = open("/dev/zero", O_RDONLY);  // without close-on-exec
    const int high = fcntl(inherited, F_DUPFD, 50);
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, &before);
    const auto pipeBefore = signal(SIGPIPE, SIG_IGN);
    launchCommand("facts");
    signal(SIGPIPE, pipeBefore);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    close(inherited);
    close(high);
    auto recorded = desktop.record();
    // The shell that runs the recorder has one more descriptor, of its own script.
    const auto script = recorded.find(program + "\n");
    if (script != std::string::npos) recorded.erase(script, program.size() + 1);
    // Two signals are the C library's own, which no program sends.
    const std::string ofTheLibrary = "0000000180000000";
    if (const auto place = recorded.find(ofTheLibrary); place != std::string::npos)
        recorded.replace(place, ofTheLibrary.size(), ofTheLibrary.size(), '0');
    EXPECT_EQ(recorded, "0000000000000000\n0000000000000000\n/dev/null\n/dev/null\nnonenone\n0\n");
}

/// A host on a terminal, whose keys and end are no affair of what it starts.
TEST(LinuxLaunch, TheTerminalStaysTheHosts) {
    const OwnDesktop desktop;
    const auto program = desktop / "bin/asker";
    std::ofstream(program) << "#!/bin/sh\n(: </dev/tty) 2>/dev/null && line=terminal || line=none\n"
                              "echo $line >>\"$TOVERA_RECORD\"\n";
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    EXPECT_EQ(resultOf(start([&] {
                  const int master = posix_openpt(O_RDWR | O_NOCTTY);
                  if (grantpt(master) != 0 || unlockpt(master) != 0 || setsid() < 0) return 1;
                  const int terminal = open(ptsname(master), O_RDWR);
                  launchCommand("asker");
                  return desktop.record() == "none\n" && tcgetsid(terminal) == getpid() ? 0 : 2;
              })),
              0);
}

TEST(LinuxLaunch, TheTableIsWellFormed) {
    EXPECT_EQ(faultsOf(launcherTable()), std::vector<std::string>());
    EXPECT_EQ(faultsOf("[a]\nGNOME x\nWINDOWS y\n* @close z\n= b\n[c]\nKDE\n").size(), 4U);
}

/// Every command line of the launchers.
std::vector<std::string> allLines() {
    std::vector<std::string> lines;
    const std::tuple<const char*, int, int> numbered[] = {
        {"RUNDLL32 SHELL32.DLL,Control_RunDLL DESK.CPL,,", 0, 3},
        {"RUNDLL32 SHELL32.DLL,Control_RunDLL ACCESS.CPL,,", 1, 5},
        {"RUNDLL32 SHELL32.DLL,Control_RunDLL APPWIZ.CPL,,", 1, 3},
        {"RUNDLL32 SHELL32.DLL,Control_RunDLL INTL.CPL,,", 0, 4},
        {"rundll32.exe shell32.dll,Control_RunDLL joy.cpl,,", 0, 1},
        {"rundll32.exe shell32.dll,Control_RunDLL main.cpl @", 0, 3},
        {"RUNDLL32 SHELL32.DLL,Control_RunDLL MMSYS.CPL,,", 0, 4},
        {"RUNDLL32 SHELL32.DLL,Control_RunDLL SYSDM.CPL,,", 0, 3},
        {"rundll32.exe shell32.dll,Control_RunDLL inetcpl.cpl,,", 0, 5}};
    for (const auto& [line, first, last] : numbered)
        for (int number : {-1, 7}) lines.push_back(line + std::to_string(number));
    for (const auto& [line, first, last] : numbered)
        for (int number = first; number <= last; ++number) lines.push_back(line + std::to_string(number));
    for (const auto* const line : {"rundll32.exe shell32.dll,OpenAs_RunDLL C:\\x.txt",
                                   "rundll32.exe shell32.dll,OpenAs_RunDLL ",
                                   "rundll32.exe shscrap.dll,OpenScrap_RunDLL /r /x C:\\x.shs",
                                   "rundll32.exe AppWiz.Cpl,NewLinkHere C:\\",
                                   "rundll32.exe shell32.dll,Control_RunDLL mlcfg32.cpl",
                                   "rundll32.exe shell32.dll,Control_RunDLL sysdm.cpl @1",
                                   "rundll32.exe shell32.dll,Control_RunDLL modem.cpl",
                                   "rundll32.exe shell32.dll,Control_RunDLL netcpl.cpl",
                                   "rundll32.exe shell32.dll,Control_RunDLL password.cpl",
                                   "rundll32.exe shell32.dll,Control_RunDLL timedate.cpl",
                                   "rundll32.exe shell32.dll,Control_RunDLL wgpocpl.cpl",
                                   "rundll32 diskcopy.dll,DiskCopyRunDll",
                                   "rundll32.exe sysdm.cpl, InstallDevice_RunDLL",
                                   "rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL AddPrinter",
                                   "rundll32.exe rnaui.dll, RnaWizard",
                                   "rundll32.exe syncui.dll, Briefcase_Create",
                                   "rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL PrintersFolder",
                                   "rundll32.exe shell32.dll,SHHelpShortcuts_RunDLL FontsFolder",
                                   "rundll32.exe shell32.dll,Control_RunDLL timedate.cpl,,/f",
                                   "rundll32.exe shell32.dll,Control_RunDLL powercfg.cpl",
                                   "rundll32.exe user.exe,restartwindows",
                                   "rundll32.exe user.exe,exitwindows",
                                   "sndvol32",
                                   "sndvol32 /t"})
        lines.emplace_back(line);
    return lines;
}

TEST(LinuxLaunchers, EveryLineLeadsSomewhereOnEveryDesktop) {
    const OwnDesktop own;
    for (const auto* const desktop :
         {"GNOME", "KDE", "XFCE", "LXQT", "MATE", "X-CINNAMON", "BUDGIE", "LXDE"}) {
        for (const auto& line : allLines()) {
            const auto commands = launcherCommands(line, {desktop});
            ASSERT_FALSE(commands.empty()) << desktop << ' ' << line;
            for (const auto& command : commands)
                EXPECT_EQ(command[0].find('%'), std::string::npos) << desktop << ' ' << line;
        }
    }
    EXPECT_TRUE(launcherCommands("rundll32 unknown.dll,Entry", {"GNOME"}).empty());
}

/// What a recorder of the first program that a line leads to has to note; empty where a line leads to none.
std::string recordOf(const std::vector<LauncherCommand>& commands) {
    for (auto command : commands) {
        if (command[0] == "@terminal") {
            command.erase(command.begin());
            command.insert(command.begin(), {"xterm", "-e"});
        }
        if (command[0][0] == '@') continue;  // what only a bus or a library can do
        std::string record;
        for (const auto& word : command) record += '[' + word + ']';
        return record + '\n';
    }
    return {};
}

TEST(LinuxLaunchers, EveryLineStartsTheFirstOfItsPrograms) {
    for (const auto* const name : {"GNOME", "KDE", "XFCE", "LXQT", "MATE", "X-CINNAMON"}) {
        const OwnDesktop desktop(name);
        desktop.addProgram("xterm");
        for (const auto& line : allLines()) {
            for (const auto& command : launcherCommands(line, {name})) {
                const auto& program = command[command[0] == "@terminal" ? 1 : 0];
                if (program[0] != '@') desktop.addProgram(program);
            }
        }
        for (const auto& line : allLines()) {
            const auto expected = recordOf(launcherCommands(line, {name}));
            EXPECT_EQ(errorOf([&] { launchCommand(line); }), expected.empty() ? 53 : 0)
                << name << ' ' << line;
            if (expected.empty()) continue;
            EXPECT_EQ(desktop.record(), expected) << name << ' ' << line;
        }
    }
}

TEST(LinuxLaunchers, PagesOfTheDesktopThatRuns) {
    struct Row {
        const char *desktop, *programs, *line, *recorded;
    };
    const Row rows[] = {
        {"GNOME", "gnome-control-center", "RUNDLL32 SHELL32.DLL,Control_RunDLL DESK.CPL,,1",
         "[gnome-control-center][screen]"},
        {"ubuntu:GNOME", "gnome-control-center", "RUNDLL32 SHELL32.DLL,Control_RunDLL DESK.CPL,,2",
         "[gnome-control-center][background]"},
        {"kde", "systemsettings", "rundll32.exe shell32.dll,Control_RunDLL main.cpl @1",
         "[systemsettings][kcm_keyboard]"},
        {"KDE", "systemsettings5", "rundll32.exe shell32.dll,Control_RunDLL main.cpl @1",
         "[systemsettings5]"},
        {"XFCE", "xfce4-settings-manager xfce4-mouse-settings",
         "rundll32.exe shell32.dll,Control_RunDLL main.cpl @0", "[xfce4-mouse-settings]"},
        {"XFCE", "xfce4-settings-manager", "rundll32.exe shell32.dll,Control_RunDLL main.cpl @-1",
         "[xfce4-settings-manager]"},
        {"LXQt", "lxqt-config-locale", "RUNDLL32 SHELL32.DLL,Control_RunDLL INTL.CPL,,4",
         "[lxqt-config-locale]"},
        {"MATE", "mate-keyboard-properties mate-at-properties",
         "RUNDLL32 SHELL32.DLL,Control_RunDLL ACCESS.CPL,,1", "[mate-keyboard-properties][--a11y]"},
        {"MATE", "mate-keyboard-properties mate-at-properties",
         "RUNDLL32 SHELL32.DLL,Control_RunDLL ACCESS.CPL,,2", "[mate-at-properties]"},
        {"X-Cinnamon", "cinnamon-settings", "rundll32.exe shell32.dll,Control_RunDLL timedate.cpl,,/f",
         "[cinnamon-settings][calendar]"},
        {"", "xterm sudo", "rundll32.exe shell32.dll,Control_RunDLL timedate.cpl",
         "[xterm][-e][sudo][dpkg-reconfigure][tzdata]"},
        {"GNOME", "gnome-session-quit", "rundll32.exe user.exe,restartwindows",
         "[gnome-session-quit][--reboot]"},
        {"GNOME", "gnome-session-quit", "rundll32.exe user.exe,exitwindows",
         "[gnome-session-quit][--power-off]"},
        {"XFCE", "exo-desktop-item-edit", "rundll32.exe AppWiz.Cpl,NewLinkHere -rf $(x) \"y",
         "[exo-desktop-item-edit][--create-new][CWD/-rf $(x) \"y]"},
        {"X-Cinnamon", "cinnamon-desktop-editor", "rundll32.exe AppWiz.Cpl,NewLinkHere Z:\\a  b",
         "[cinnamon-desktop-editor][-mnemo-launcher][-d/a  b]"},
    };
    for (const auto& [name, programs, line, recorded] : rows) {
        const OwnDesktop desktop(name);
        std::istringstream list(programs);
        for (std::string program; list >> program;) desktop.addProgram(program);
        EXPECT_EQ(errorOf([&, l = line] { launchCommand(l); }), 0) << line;
        std::string expected = recorded;
        if (const auto place = expected.find("CWD"); place != std::string::npos)
            expected.replace(place, 3, std::filesystem::current_path().string());
        EXPECT_EQ(desktop.record(), expected + "\n") << name << ' ' << line;
    }
    const OwnDesktop bare("GNOME");
    for (const auto& line : allLines()) EXPECT_EQ(errorOf([&] { launchCommand(line); }), 53) << line;
}

TEST(LinuxLaunchers, NoTestCanEndTheSystem) {
    // The guard itself: nothing that ends a session is on the path, and the buses aren't those of this
    // machine.
    const OwnDesktop desktop("GNOME");
    for (const auto* const line :
         {"rundll32.exe user.exe,restartwindows", "rundll32.exe user.exe,exitwindows"}) {
        for (const auto* const name :
             {"GNOME", "KDE", "XFCE", "LXQT", "MATE", "X-CINNAMON", "BUDGIE", "LXDE"})
            for (const auto& command : launcherCommands(line, {name}))
                EXPECT_FALSE(findProgram(command[0])) << command[0];
        EXPECT_EQ(errorOf([&] { launchCommand(line); }), 53);
    }
    for (const auto* const bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
        EXPECT_TRUE(std::string(std::getenv(bus)).ends_with("/run/no-bus"));
}

TEST(LinuxLaunch, AHostMayHaveNoEnvironment) {
    char** const before = std::exchange(environ, nullptr);
    const auto others = environmentForOthers();
    environ = before;
    EXPECT_EQ(others, std::vector<char*>{nullptr});
}

}  // namespace
}  // namespace tovera::testing
