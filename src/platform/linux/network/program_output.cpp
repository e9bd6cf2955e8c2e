#include "platform/linux/network/program_output.h"

#include <array>
#include <cerrno>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "frame/error.h"
#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/processes/spawn_settings.h"

namespace tovera {
namespace {

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    for (auto& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> englishEnvironment() {
    std::vector<std::string> variables{"LC_ALL=C"};
    for (const auto* const variable : environmentForOthers())
        if (variable && !std::string_view(variable).starts_with("LC_ALL=")) variables.emplace_back(variable);
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
    SpawnSettings settings;
    settings.allStreamsOnNothing();
    settings.stream(STDOUT_FILENO, input.get());
    settings.closeOthers();
    pid_t process = 0;
    const int error =
        posix_spawnp(&process, arguments.front().c_str(), settings.actions(), settings.attributes(),
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
