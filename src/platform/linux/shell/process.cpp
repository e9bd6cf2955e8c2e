#include "platform/linux/shell/process.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "frame/error.h"
#include "frame/last_error.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/processes/spawn_settings.h"

namespace tovera {
namespace {

/// What goes back to the host: the number of the process, or why it couldn't begin.
struct Report {
    pid_t process = 0;
    int error = ECHILD;
};

bool readWhole(const FileDescriptor& from, void* target, std::size_t size) {
    ssize_t count = 0;
    do count = read(from.get(), target, size);
    while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(size);
}

/// Keeps the host's signals and cancellations waiting: nothing of the host's may run in a child that shares
/// its memory.
class Undisturbed {
  public:
    Undisturbed() {
        pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &state_);
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    Undisturbed(const Undisturbed&) = delete;
    Undisturbed& operator=(const Undisturbed&) = delete;
    ~Undisturbed() {
        pthread_sigmask(SIG_SETMASK, &before_, nullptr);
        pthread_setcancelstate(state_, nullptr);
    }

  private:
    int state_ = PTHREAD_CANCEL_ENABLE;
    sigset_t before_{};
};

/// The terminal of this process, for it and for what it starts, is none. A session of its own would do the
/// same, but where the system shares the processor out by sessions, its first program waits for its turn.
void leaveTerminal() {
    const FileDescriptor terminal(open("/dev/tty", O_RDWR | O_NOCTTY | O_CLOEXEC));
    if (terminal.isOpen()) ioctl(terminal.get(), TIOCNOTTY);
}

/// Starts a program from a child that ends at once, so that its process belongs to nobody here. The child
/// shares this process's memory, as `posix_spawn` does it too: a host of any size costs the same.
pid_t startFromChild(const char* name, const SpawnSettings& settings, char* const* arguments,
                     char* const* environment, int answer) {
    const Undisturbed quiet;
    // NOLINTBEGIN(clang-analyzer-unix.Vfork,clang-analyzer-security.insecureAPI.vfork): nothing of the host's
    // is changed.
    const pid_t child = vfork();
    if (child == 0) {
        leaveTerminal();
        Report report;
        report.error = posix_spawn(&report.process, name, settings.actions(), settings.attributes(),
                                   arguments, environment);
        _exit(write(answer, &report, sizeof report) == sizeof report ? 0 : 1);
    }
    // NOLINTEND(clang-analyzer-unix.Vfork,clang-analyzer-security.insecureAPI.vfork)
    return child;
}

}  // namespace

R8 startProcess(const Command& command) {
    std::string name = command.program;
    std::vector<char*> arguments{name.data()};
    for (const auto& argument : command.arguments) arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    const auto environment = environmentForOthers();
    SpawnSettings settings(POSIX_SPAWN_SETPGROUP);
    settings.allStreamsOnNothing();
    if (!command.folder.empty()) settings.startIn(command.folder.c_str());
    settings.closeOthers();
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) raise(ErrorNumber::InvalidCall);
    const FileDescriptor reader(ends[0]);
    FileDescriptor writer(ends[1]);
    Report report;
    const pid_t child =
        startFromChild(name.c_str(), settings, arguments.data(), environment.data(), writer.get());
    { const FileDescriptor closed = std::move(writer); }
    // Its end is waited for before its report is read: so this process wakes up only once.
    while (child > 0 && waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
    const bool isTold = child > 0 && readWhole(reader, &report, sizeof report);
    lastError() = report.error;
    if (report.error == ENOENT || report.error == ENOTDIR) raise(ErrorNumber::FileNotFound);
    if (!isTold || report.error != 0) raise(ErrorNumber::InvalidCall);
    return report.process;
}

}  // namespace tovera
