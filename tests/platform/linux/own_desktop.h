#pragma once

#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <map>
#include <optional>
#include <sys/types.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

#include "platform/linux/temporary_folder.h"

namespace tovera::testing {

/// Environment variables that go back to what they were.
class Variables {
  public:
    Variables() = default;
    Variables(const Variables&) = delete;
    Variables& operator=(const Variables&) = delete;
    ~Variables() {
        for (const auto& [name, value] : before_)
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }

    void set(const std::string& name, const std::string& value) {
        keep(name);
        setenv(name.c_str(), value.c_str(), 1);
    }
    void unset(const std::string& name) {
        keep(name);
        unsetenv(name.c_str());
    }

  private:
    void keep(const std::string& name) {
        const char* const value = std::getenv(name.c_str());
        before_.emplace(name, value ? std::optional<std::string>(value) : std::nullopt);
    }
    std::map<std::string, std::optional<std::string>> before_;
};

/// A user's session of the test's own: folders, a path that holds recorders alone, no display, and buses that
/// aren't there. What is launched reaches nothing of the real one.
class OwnDesktop {
  public:
    explicit OwnDesktop(const std::string& desktop = {}) {
        for (const auto* const folder : {"bin", "config", "data/tovera/drive_c", "cache", "run", "share"})
            std::filesystem::create_directories(folder_ / folder);
        std::filesystem::permissions(folder_ / "run", std::filesystem::perms::owner_all);
        variables.set("HOME", folder_.path());
        for (const auto& [name, folder] :
             {std::pair("XDG_CONFIG_HOME", "config"), std::pair("XDG_DATA_HOME", "data"),
              std::pair("XDG_CACHE_HOME", "cache"), std::pair("XDG_RUNTIME_DIR", "run"),
              std::pair("XDG_DATA_DIRS", "share"), std::pair("PATH", "bin")})
            variables.set(name, folder_ / folder);
        for (const auto* const bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
            variables.set(bus, "unix:path=" + (folder_ / "run/no-bus"));
        for (const auto* const name :
             {"DISPLAY", "WAYLAND_DISPLAY", "XDG_SESSION_DESKTOP", "DESKTOP_SESSION"})
            variables.unset(name);
        variables.set("XDG_CURRENT_DESKTOP", desktop);
        variables.set("TOVERA_RECORD", recordFile());
    }

    std::string operator/(const std::string& name) const { return folder_ / name; }

    /// Puts a recorder of this name on the path. It notes its name and its arguments.
    void addProgram(const std::string& name) const {
        const auto path = folder_ / ("bin/" + name);
        // One write of a whole line, so that none is read in parts.
        std::ofstream(path) << "#!/bin/sh\nline=\"[${0##*/}]\"\nfor word; do line=\"$line[$word]\"; done\n"
                               "printf '%s\\n' \"$line\" >>\"$TOVERA_RECORD\"\n";
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }
    void removeProgram(const std::string& name) const { std::filesystem::remove(folder_ / ("bin/" + name)); }

    /// What was recorded, once there is something or some seconds have passed; it is taken away.
    std::string record() const {
        using namespace std::chrono_literals;
        for (int tries = 500; tries > 0 && contentOf(recordFile()).empty(); --tries)
            std::this_thread::sleep_for(10ms);
        const auto recorded = contentOf(recordFile());
        std::filesystem::remove(recordFile());
        return recorded;
    }

    /// What the program `tovera` prints, in a process of its own: libraries that keep what they have once
    /// read of the environment see that of the test.
    std::string tovera(const std::vector<std::string>& arguments) const {
        const auto program =
            std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path() / "tovera";
        int ends[2];
        if (pipe(ends) != 0) return "no pipe";
        // Made before the fork: beside threads the child can do little more than become the program.
        std::vector<char*> words{const_cast<char*>("tovera")};
        for (const auto& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
        words.push_back(nullptr);
        const auto process = fork();
        if (process == 0) {
            for (const int stream : {1, 2}) dup2(ends[1], stream);
            dup2(open("/dev/null", O_RDONLY), 0);
            execv(program.c_str(), words.data());
            _exit(127);
        }
        close(ends[1]);
        std::string printed;
        for (char piece[4096];;) {
            const auto count = read(ends[0], piece, sizeof piece);
            if (count <= 0) break;
            printed.append(piece, static_cast<std::size_t>(count));
        }
        close(ends[0]);
        waitpid(process, nullptr, 0);
        return printed;
    }

    Variables variables;

  private:
    std::string recordFile() const { return folder_ / "recorded"; }
    TemporaryFolder folder_;
};

/// Waits until a process that isn't a child has ended; false when it takes too long.
inline bool hasEnded(pid_t process) {
    using namespace std::chrono_literals;
    for (int tries = 500; tries > 0; --tries) {
        // One that nobody has asked for yet is another's: the first process of the system takes its time.
        const auto facts = contentOf("/proc/" + std::to_string(process) + "/stat");
        if (facts.empty() || facts.find(") Z ") != std::string::npos) return true;
        std::this_thread::sleep_for(10ms);
    }
    return false;
}

}  // namespace tovera::testing
