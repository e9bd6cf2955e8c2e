#include "platform/linux/shell/dialogs.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include "frame/services.h"
#include "frame/utf8.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/processes/spawn_settings.h"
#include "platform/linux/shell/host_loop.h"
#include "platform/linux/shell/launchers.h"
#include "platform/linux/shell/programs.h"

namespace tovera {
namespace {

using Words = std::vector<std::string>;

bool answers(const std::string& socketPath) {
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    if (socketPath.size() >= sizeof address.sun_path) return false;
    socketPath.copy(address.sun_path, socketPath.size());
    const FileDescriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    return connect(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0;
}

std::string variable(const char* name) {
    const char* const value = std::getenv(name);
    return value ? value : "";
}

/// A file of memory with the input, so that no writer can be blocked.
FileDescriptor inputFile(const std::string& input) {
    FileDescriptor file(memfd_create("input", MFD_CLOEXEC));
    if (pwrite(file.get(), input.data(), input.size(), 0) != static_cast<ssize_t>(input.size())) return {};
    return file;
}

std::string readToEnd(const FileDescriptor& from) {
    std::string output;
    std::array<char, 4096> piece;
    for (;;) {
        std::vector<pollfd> descriptors{{from.get(), POLLIN, 0}};
        {
            const HostLoopWait loop(descriptors);
            poll(descriptors.data(), static_cast<nfds_t>(descriptors.size()), loop.longest());
            loop.isReady(descriptors);
        }
        pumpHostLoop();
        if (descriptors[0].revents == 0) continue;
        const auto count = read(from.get(), piece.data(), piece.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return output;
        output.append(piece.data(), static_cast<std::size_t>(count));
    }
}

/// Both programs read escapes in their texts.
std::string withoutEscapes(const std::string& text) {
    std::string plain;
    for (const char c : text) plain.append(c == '\\' ? 2 : 1, c);
    return plain;
}

/// Text that looks like markup would be taken for it, so that all is made markup that shows as it was.
std::string asMarkup(const std::string& text) {
    std::string markup = "<qt>";
    for (const char c : withoutEscapes(text)) {
        if (c == '&')
            markup += "&amp;";
        else if (c == '<')
            markup += "&lt;";
        else if (c == '\n')
            markup += "<br/>";
        else if (c != '\r')
            markup += c;
    }
    return markup + "</qt>";
}

enum class Dialog { Text, Stop, Question };

/// The command of a dialog program, with the text for its input if it takes it there.
struct DialogCommand {
    Words words;
    std::string input;
};

DialogCommand commandOf(const std::string& program, Dialog dialog, const std::string& text,
                        const std::string& title) {
    const bool asks = dialog == Dialog::Question;
    const bool stops = dialog == Dialog::Stop;
    if (program == "kdialog") {
        const auto* const kind = asks ? "--yesno=" : stops ? "--error=" : "--msgbox=";
        return {{program, "--title=" + title, kind + asMarkup(text)}, {}};
    }
    if (program == "zenity") {
        const auto* const kind = asks ? "--question" : stops ? "--error" : "--info";
        return {{program, kind, "--no-markup", "--title=" + title, "--text=" + withoutEscapes(text)}, {}};
    }
    return {{program, "-title", title, "-buttons", asks ? "Oui:0,Non:1" : "OK:0", "-file", "-"}, text};
}

/// The dialog programs that are here, the desktop's own first; none without a display.
Words dialogPrograms() {
    Words programs{"zenity", "kdialog", "xmessage"};
    const auto desktops = desktopNames();
    for (const auto* const name : {"KDE", "LXQT"})
        if (std::ranges::find(desktops, name) != desktops.end()) std::swap(programs[0], programs[1]);
    std::erase_if(programs, [](const auto& program) { return !hasProgram(program); });
    return displayAnswers() ? programs : Words();
}

bool isTerminal() {
    return isatty(STDIN_FILENO) && isatty(STDERR_FILENO);
}

}  // namespace

bool displayAnswers() {
    const auto wayland = variable("WAYLAND_DISPLAY");
    const auto socket = wayland.starts_with('/') ? wayland : variable("XDG_RUNTIME_DIR") + '/' + wayland;
    if (!wayland.empty() && answers(socket)) return true;
    const auto display = variable("DISPLAY");
    if (!display.starts_with(':')) return !display.empty();
    return answers("/tmp/.X11-unix/X" + display.substr(1, display.find('.') - 1));
}

DialogAnswer runDialog(const Words& words, const std::string& input) {
    const auto program = findProgram(words[0]);
    const auto file = inputFile(input);
    std::array<int, 2> ends{-1, -1};
    if (!program || !program->mayRun || !file.isOpen() || pipe2(ends.data(), O_CLOEXEC) != 0) return {};
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);
    SpawnSettings settings;
    settings.stream(STDIN_FILENO, file.get());
    settings.stream(STDOUT_FILENO, writer.get());
    settings.streamOnNothing(STDERR_FILENO);
    settings.closeOthers();
    std::vector<char*> arguments;
    for (const auto& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    pid_t process = 0;
    if (posix_spawn(&process, program->path.c_str(), settings.actions(), settings.attributes(),
                    arguments.data(), environmentForOthers().data()) != 0)
        return {};
    { const FileDescriptor closed = std::move(writer); }
    DialogAnswer answer{false, readToEnd(reader)};
    int status = -1;
    while (waitpid(process, &status, 0) < 0 && errno == EINTR) {
    }
    answer.accepted = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    while (answer.output.ends_with('\n')) answer.output.pop_back();
    return answer;
}

bool showInDialog(std::u16string_view text, std::u16string_view title, I4 flags) {
    using namespace std::chrono_literals;
    constexpr auto soonerThanAnyUser = 200ms;
    const auto kind = (flags & messageFlags::stop) != 0 ? Dialog::Stop : Dialog::Text;
    return std::ranges::any_of(dialogPrograms(), [&](const auto& program) {
        const auto command = commandOf(program, kind, toUtf8(text), toUtf8(title));
        const auto before = std::chrono::steady_clock::now();
        if (runDialog(command.words, command.input).accepted) return true;
        return std::chrono::steady_clock::now() - before > soonerThanAnyUser;  // closed otherwise
    });
}

bool askUser(std::u16string_view text, std::u16string_view title) {
    const auto programs = dialogPrograms();
    if (!programs.empty()) {
        const auto command = commandOf(programs[0], Dialog::Question, toUtf8(text), toUtf8(title));
        return runDialog(command.words, command.input).accepted;
    }
    if (!isTerminal()) return false;
    std::cout.flush();
    std::cerr << '[' << toUtf8(title) << "] " << toUtf8(text) << " (o/n) " << std::flush;
    std::string answer;
    std::getline(std::cin, answer);
    return answer.starts_with('o') || answer.starts_with('O');
}

}  // namespace tovera
