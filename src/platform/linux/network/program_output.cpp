#include "platform/linux/network/program_output.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "frame/error.h"
#include "platform/linux/files/file_descriptor.h"

namespace tovera {
namespace {

/// Standard input and errors on nothing, output into the pipe.
class Streams {
  public:
    explicit Streams(int output) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&actions_, output, STDOUT_FILENO);
        posix_spawn_file_actions_addopen(&actions_, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    }
    Streams(const Streams&) = delete;
    Streams& operator=(const Streams&) = delete;
    ~Streams() { posix_spawn_file_actions_destroy(&actions_); }
    const posix_spawn_file_actions_t* get() const { return &actions_; }

  private:
    posix_spawn_file_actions_t actions_{};
};

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> englishEnvironment() {
    std::vector<std::string> variables{"LC_ALL=C"};
    for (char** variable = environ; *variable; ++variable) {
        if (!std::string_view(*variable).starts_with("LC_ALL=")) variables.emplace_back(*variable);
    }
    return variables;
}

std::string readToEnd(const FileDescriptor& file) {
    std::string text;
    for (std::array<char, 4096> piece;;) {
        const auto count = read(file.get(), piece.data(), piece.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return text;
        text.append(piece.data(), static_cast<std::size_t>(count));
    }
}

bool hasSucceeded(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0) {
        if (errno != EINTR) return false;
    }
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

std::optional<ProgramOutput> runProgram(std::vector<std::string> arguments) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) raise(ErrorNumber::InvalidCall);
    const FileDescriptor output(ends[0]);
    FileDescriptor input(ends[1]);
    auto variables = englishEnvironment();
    const Streams streams(input.get());
    pid_t process = 0;
    const int error = posix_spawnp(&process, arguments.front().c_str(), streams.get(), nullptr,
                                   pointersTo(arguments).data(), pointersTo(variables).data());
    if (error == ENOENT || error == ENOTDIR || error == EACCES) return {};
    if (error != 0) raise(ErrorNumber::InvalidCall);
    input = FileDescriptor();
    ProgramOutput result;
    result.text = readToEnd(output);
    result.succeeded = hasSucceeded(process);
    return result;
}

}  // namespace tovera
