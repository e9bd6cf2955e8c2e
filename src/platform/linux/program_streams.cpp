#include "platform/program_streams.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <thread>
#include <unistd.h>

namespace tovera {
namespace {

bool terminalsProgram = false;

int descriptorOf(StandardStream stream) {
    constexpr std::array descriptors{STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
    return descriptors[static_cast<std::size_t>(stream)];
}

}  // namespace

/// A closed stream gets one that can't be used the way it is meant to be, so that its use still fails.
bool isTerminalsProgram() {
    return terminalsProgram;
}

void startProgram() {
    terminalsProgram = true;
    for (const auto stream : {StandardStream::Input, StandardStream::Output, StandardStream::Error}) {
        const int descriptor = descriptorOf(stream);
        if (fcntl(descriptor, F_GETFD) >= 0) continue;
        const int mode = stream == StandardStream::Input ? O_WRONLY : O_RDONLY;
        if (open("/dev/null", mode) != descriptor) _exit(1);
    }
    // A reader that has gone is told as a failed write. Programs that we start don't inherit it.
    std::signal(SIGPIPE, [](int) {});
}

std::vector<std::string> programArguments(int count, char** values) {
    return {values + (count > 0 ? 1 : 0), values + count};
}

std::optional<std::size_t> readInput(std::span<char> bytes) {
    for (;;) {
        const auto count = read(STDIN_FILENO, bytes.data(), bytes.size());
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno != EINTR) return {};
    }
}

bool writeStream(StandardStream stream, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto count = write(descriptorOf(stream), bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR) return false;
        if (count > 0) bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

std::string streamFailure() {
    return std::strerror(errno);
}

bool isTerminal(StandardStream stream) {
    return isatty(descriptorOf(stream)) != 0;
}

void pause(std::chrono::milliseconds time) {
    std::this_thread::sleep_for(time);
}

}  // namespace tovera
