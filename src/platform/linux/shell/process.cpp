#include "platform/linux/shell/process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "frame/error.h"
#include "frame/last_error.h"
#include "platform/linux/files/file_descriptor.h"

namespace tovera {
namespace {

/// What goes back to the host: first the number of the process, then, if it comes to that, why it couldn't
/// begin.
struct Report {
    pid_t process = 0;
    int error = 0;
};

/// What the program gets: the host's environment without what belongs to the host's own start.
std::vector<char*> environmentForOthers() {
    std::vector<char*> kept;
    for (char** variable = environ; *variable; ++variable) {
        const std::string_view text = *variable;
        if (!text.starts_with("DESKTOP_STARTUP_ID=") && !text.starts_with("XDG_ACTIVATION_TOKEN="))
            kept.push_back(*variable);
    }
    kept.push_back(nullptr);
    return kept;
}

// What runs between the forks and the program may be in a copy of a process with several threads: system
// calls only.

void resetSignals() {
    struct sigaction usual {};
    usual.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number) sigaction(number, &usual, nullptr);
    sigset_t none;
    sigemptyset(&none);
    sigprocmask(SIG_SETMASK, &none, nullptr);
}

/// What the copy of the process needs, made before it.
struct Beginning {
    const char* path;
    const char* folder;  ///< empty for the current one
    char* const* arguments;
    char* const* environment;
};

[[noreturn]] void becomeProgram(const Beginning& program, int reports) {
    constexpr int firstFree = 3;  // behind the standard streams
    reports = fcntl(reports, F_DUPFD_CLOEXEC, firstFree);
    const int nothing = open("/dev/null", O_RDWR);
    for (int stream = 0; stream <= 2; ++stream) dup2(nothing, stream);
    close_range(firstFree, ~0U, CLOSE_RANGE_CLOEXEC);
    resetSignals();
    if (!*program.folder || chdir(program.folder) == 0)
        execve(program.path, program.arguments, program.environment);
    const int error = errno;
    [[maybe_unused]] const auto told = write(reports, &error, sizeof error);
    _exit(1);
}

/// The child leaves the host's session and makes the process itself, which so belongs to nobody here.
[[noreturn]] void leaveHost(const Beginning& program, int reports) {
    setsid();
    const pid_t process = fork();
    if (process == 0) becomeProgram(program, reports);
    const Report report{process, process < 0 ? errno : 0};
    [[maybe_unused]] const auto told = write(reports, &report.process, sizeof report.process);
    if (process < 0) [[maybe_unused]]
        const auto why = write(reports, &report.error, sizeof report.error);
    _exit(0);
}

bool readWhole(const FileDescriptor& from, void* target, std::size_t size) {
    ssize_t count = 0;
    do count = read(from.get(), target, size);
    while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(size);
}

}  // namespace

R8 startProcess(const Command& command) {
    std::string name = command.program;
    std::vector<char*> arguments{name.data()};
    for (const auto& argument : command.arguments) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const auto environment = environmentForOthers();
    const Beginning beginning{command.program.c_str(), command.folder.c_str(), arguments.data(),
                              environment.data()};
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) raise(ErrorNumber::InvalidCall);
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);
    const pid_t child = fork();
    if (child == 0) leaveHost(beginning, writer.get());
    { const FileDescriptor closed = std::move(writer); }
    if (child < 0) raise(ErrorNumber::InvalidCall);
    Report report;
    const bool begun = readWhole(reader, &report.process, sizeof report.process);
    const bool failed = !begun || readWhole(reader, &report.error, sizeof report.error);
    while (waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    lastError() = report.error;
    if (report.error == ENOENT || report.error == ENOTDIR) raise(ErrorNumber::FileNotFound);
    if (failed) raise(ErrorNumber::InvalidCall);
    return report.process;
}

}  // namespace tovera
