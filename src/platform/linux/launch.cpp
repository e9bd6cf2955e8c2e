#include "platform/linux/launch.h"

#include <cerrno>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "frame/error.h"
#include "frame/last_error.h"

namespace tovera {
namespace {

std::vector<std::string> wordsOf(std::string_view commandLine) {
    std::vector<std::string> words;
    bool quoted = false;
    bool inWord = false;
    for (const char c : commandLine) {
        if (c == '"') quoted = !quoted;
        if (c == ' ' && !quoted) {
            inWord = false;
            continue;
        }
        if (!inWord) words.emplace_back();
        inWord = true;
        if (c != '"') words.back() += c;
    }
    return words;
}

/// Nobody waits for a launched program: those that have ended since are reaped at the next launch, and the
/// host's own children are left to the host.
void reapEnded(std::vector<pid_t>& launched) {
    std::erase_if(launched, [](pid_t process) { return waitpid(process, nullptr, WNOHANG) != 0; });
}

}  // namespace

R8 launchProgram(std::string_view commandLine) {
    auto words = wordsOf(commandLine);
    if (words.empty()) raise(ErrorNumber::InvalidCall);
    std::vector<char*> arguments;
    for (auto& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    thread_local std::vector<pid_t> launched;
    reapEnded(launched);
    pid_t process = 0;
    const int error = posix_spawnp(&process, arguments[0], nullptr, nullptr, arguments.data(), environ);
    lastError() = error;
    if (error == ENOENT || error == ENOTDIR) raise(ErrorNumber::FileNotFound);
    if (error != 0) raise(ErrorNumber::InvalidCall);
    launched.push_back(process);
    return process;
}

}  // namespace tovera
