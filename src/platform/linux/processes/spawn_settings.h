#pragma once

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace tovera {

/// What a desktop tells a program of its own start, which is none of others' affair.
inline constexpr std::array ownStartVariables{"DESKTOP_STARTUP_ID", "XDG_ACTIVATION_TOKEN"};

/// The host's environment without them, for `posix_spawn`.
inline std::vector<char*> environmentForOthers() {
    std::vector<char*> kept;
    for (char** variable = environ; variable && *variable; ++variable) {
        const std::string_view text = *variable;
        if (std::ranges::find(ownStartVariables, text.substr(0, text.find('='))) == ownStartVariables.end())
            kept.push_back(*variable);
    }
    kept.push_back(nullptr);
    return kept;
}

/// How a program is started so that it gets nothing of the host: no signal blocked or ignored, no open file
/// beyond the standard streams, and those as told here.
class SpawnSettings {
  public:
    explicit SpawnSettings(short furtherFlags = 0) {
        posix_spawn_file_actions_init(&actions_);
        posix_spawnattr_init(&attributes_);
        sigset_t none, all;
        sigemptyset(&none);
        sigfillset(&all);
        posix_spawnattr_setsigmask(&attributes_, &none);
        posix_spawnattr_setsigdefault(&attributes_, &all);
        posix_spawnattr_setflags(
            &attributes_, static_cast<short>(POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | furtherFlags));
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;
    ~SpawnSettings() {
        posix_spawn_file_actions_destroy(&actions_);
        posix_spawnattr_destroy(&attributes_);
    }

    /// Standard input, output and errors; what is to be read or heard is told afterwards.
    void allStreamsOnNothing() {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) streamOnNothing(stream);
    }
    void stream(int number, int file) { posix_spawn_file_actions_adddup2(&actions_, file, number); }
    void streamOnNothing(int number) {
        posix_spawn_file_actions_addopen(&actions_, number, "/dev/null", O_RDWR, 0);
    }
    void startIn(const char* folder) { posix_spawn_file_actions_addchdir_np(&actions_, folder); }
    void closeOthers() { posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1); }

    const posix_spawn_file_actions_t* actions() const { return &actions_; }
    const posix_spawnattr_t* attributes() const { return &attributes_; }

  private:
    posix_spawn_file_actions_t actions_{};
    posix_spawnattr_t attributes_{};
};

}  // namespace tovera
