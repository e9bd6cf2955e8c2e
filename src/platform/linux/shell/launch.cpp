#include "platform/linux/shell/launch.h"

#include <algorithm>
#include <array>

#include "frame/ascii_case.h"
#include "frame/error.h"
#include "frame/last_error.h"
#include "platform/linux/shell/command_line.h"
#include "platform/linux/shell/launchers.h"
#include "platform/linux/shell/opening.h"
#include "platform/linux/shell/process.h"
#include "platform/linux/shell/programs.h"
#include "platform/linux/shell/session.h"

namespace tovera {
namespace {

using Started = std::optional<R8>;
constexpr R8 byAnotherProcess = 0;

Started startedIf(bool done) {
    return done ? Started(byAnotherProcess) : std::nullopt;
}

Started startProgram(const LauncherCommand& command) {
    const auto found = findProgram(command[0]);
    if (!found || !found->mayRun) return std::nullopt;
    return startProcess({found->path, {command.begin() + 1, command.end()}});
}

/// A terminal and the option behind which the command stands.
using Terminal = std::pair<const char*, const char*>;
constexpr std::array terminals{
    Terminal{"xdg-terminal-exec", nullptr},
    Terminal{"x-terminal-emulator", "-e"},
    Terminal{"gnome-terminal", "--"},
    Terminal{"konsole", "-e"},
    Terminal{"xfce4-terminal", "-x"},
    Terminal{"mate-terminal", "-x"},
    Terminal{"lxterminal", "-e"},
    Terminal{"qterminal", "-e"},
    Terminal{"xterm", "-e"},
};

Started startInTerminal(const LauncherCommand& command) {
    if (command.size() < 2 || !hasProgram(command[1])) return std::nullopt;
    for (const auto& [name, option] : terminals) {
        LauncherCommand line{name};
        if (option) line.emplace_back(option);
        line.insert(line.end(), command.begin() + 1, command.end());
        if (const auto started = startProgram(line)) return started;
    }
    return std::nullopt;
}

Started startByVerb(const LauncherCommand& command) {
    const auto& verb = command[0];
    const auto argument = [&](std::size_t i) { return i < command.size() ? command[i] : std::string(); };
    if (verb == "@open") return startedIf(openByDesktop(argument(1)));
    if (verb == "@openwith") return startedIf(openWithDialog(argument(1)));
    if (verb == "@program") return startedIf(startProgramFor(argument(1)));
    if (verb == "@terminal") return startInTerminal(command);
    if (verb == "@logind") return startedIf(askLogOnManager(argument(1)));
    if (verb == "@dbus") return startedIf(callSession(argument(1), argument(2), argument(3)));
    return startProgram(command);
}

bool isForTheTable(std::string_view line) {
    const auto words = wordsOf(line);
    if (words.empty()) return false;
    auto name = smallAscii(words[0].text);
    if (name.ends_with(".exe")) name.resize(name.size() - 4);
    return name == "rundll32" || name == "sndvol32";
}

R8 launchByTable(std::string_view line) {
    for (const auto& command : launcherCommands(line, desktopNames()))
        if (const auto started = startByVerb(command)) return *started;
    raise(ErrorNumber::FileNotFound);
}

/// A line "PROGRAM FILE" whose program is the file's own is started through the desktop's entry, which may
/// say more of how to start it.
bool opensByEntry(const Command& command) {
    if (command.arguments.size() != 1 || command.arguments[0].empty() || command.arguments[0][0] != '/')
        return false;
    const auto opener = openerOf(command.arguments[0]);
    return opener && opener->executable == command.program && openByDesktop(command.arguments[0]);
}

}  // namespace

R8 launchCommand(std::string_view commandLine) {
    if (isForTheTable(commandLine)) return launchByTable(commandLine);
    const auto command = commandOf(commandLine);
    return opensByEntry(command) ? byAnotherProcess : startProcess(command);
}

}  // namespace tovera
