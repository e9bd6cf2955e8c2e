#pragma once

#include <array>
#include <chrono>
#include <cstdlib>
#include <fcntl.h>
#include <signal.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

namespace tovera::testing {

/// A program that ends with the test.
class RunningProgram {
  public:
    RunningProgram() = default;
    explicit RunningProgram(const std::vector<std::string>& words, int output = -1) {
        std::vector<char*> arguments;
        for (const auto& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
        arguments.push_back(nullptr);
        process_ = fork();
        if (process_ != 0) return;
        if (output >= 0) dup2(output, 3);
        for (const int stream : {1, 2}) dup2(open("/dev/null", O_WRONLY), stream);
        execvp(arguments[0], arguments.data());
        _exit(127);
    }
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;
    ~RunningProgram() { end(); }
    void end() {
        if (process_ <= 0) return;
        kill(process_, SIGTERM);
        waitpid(std::exchange(process_, -1), nullptr, 0);
    }

  private:
    pid_t process_ = -1;
};

/// Where a program of this machine is, whatever path a test has set; empty where there is none.
inline std::string findProgramOfMachine(const std::string& name) {
    for (const auto* const folder : {"/usr/bin/", "/usr/local/bin/", "/bin/"})
        if (access((folder + name).c_str(), X_OK) == 0) return folder + name;
    return {};
}

/// Whether a program stands on the usual path of this machine.
inline bool machineHas(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

/// Waits for what other processes bring about; false when it doesn't come.
template <class Condition>
bool comesTrue(Condition&& condition) {
    for (int i = 0; i < 400; ++i) {
        if (condition()) return true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return false;
}

/// A display of the test's own without a screen; `isThere` is false where this machine can't have one.
class OwnDisplay {
  public:
    /// Further options are the server's own.
    explicit OwnDisplay(std::vector<std::string> options = {})
        : OwnDisplay(displayEnds(), std::move(options)) {}
    OwnDisplay(const OwnDisplay&) = delete;
    OwnDisplay& operator=(const OwnDisplay&) = delete;
    ~OwnDisplay() { unsetenv("DISPLAY"); }

    bool isThere() const { return isThere_; }
    /// Takes the display away from its clients.
    void end() { server_.end(); }

  private:
    static std::vector<std::string> commandWith(std::vector<std::string> options) {
        std::vector<std::string> command{"Xvfb", "-displayfd", "3", "-noreset",  "-nolisten",
                                         "tcp",  "-screen",    "0", "800x600x24"};
        command.insert(command.end(), options.begin(), options.end());
        return command;
    }
    static std::array<int, 2> displayEnds() {
        std::array<int, 2> ends{-1, -1};
        if (machineHas("Xvfb") && pipe(ends.data()) != 0) ends = {-1, -1};
        return ends;
    }
    OwnDisplay(const std::array<int, 2>& ends, std::vector<std::string> options)
        : server_(ends[1] < 0 ? std::vector<std::string>{"true"} : commandWith(std::move(options)), ends[1]) {
        if (ends[1] < 0) return;
        close(ends[1]);
        std::string number;  // the server ends when it can't write the whole line
        for (char digit = 0; read(ends[0], &digit, 1) == 1 && digit != '\n';) number += digit;
        close(ends[0]);
        if (number.empty()) return;
        setenv("DISPLAY", (":" + number).c_str(), 1);
        isThere_ = true;
    }

    RunningProgram server_;
    bool isThere_ = false;
};

}  // namespace tovera::testing
