#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace tovera::testing {

/// A process that runs a function and ends with its result, without what the test has set up for its end.
class ChildProcess {
  public:
    template <class Work>
    explicit ChildProcess(Work&& work) : id_(fork()) {
        if (id_ == 0) _exit(std::forward<Work>(work)());
    }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;
    ~ChildProcess() {
        if (id_ > 0) {
            kill();
            wait();
        }
    }

    void kill() { ::kill(id_, SIGKILL); }
    /// What the function gave, or -1 for a process that was killed.
    int wait() {
        int status = 0;
        waitpid(std::exchange(id_, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    pid_t id_;
};

}  // namespace tovera::testing
