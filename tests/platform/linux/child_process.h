#pragma once

#include <memory>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>
#include <vector>

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
        if (id_ > 0) ::kill(id_, SIGKILL);
        if (id_ > 0) wait();
    }

    /// What the function gave, or -1 for a process that was killed.
    int wait() {
        int status = 0;
        waitpid(std::exchange(id_, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

  private:
    pid_t id_;
};

/// Whether work gives 0 in a process of its own: for each number below count one, all at the same time.
template <class Work>
bool succeedsInEach(int count, Work&& work) {
    std::vector<std::unique_ptr<ChildProcess>> processes;
    for (int i = 0; i < count; ++i) {
        processes.push_back(std::make_unique<ChildProcess>([&work, i] { return work(i); }));
    }
    bool succeeded = true;
    for (const auto& process : processes) succeeded = process->wait() == 0 && succeeded;
    return succeeded;
}

/// Whether work gives 0 for a user that the permissions of files bind.
template <class Work>
bool succeedsForOthers(Work&& work) {
    constexpr uid_t nobody = 65534;
    return ChildProcess([&] { return geteuid() == 0 && setuid(nobody) != 0 ? 1 : work(); }).wait() == 0;
}

/// Runs work, which reports what it has done by ascending numbers, in a process that is killed once it has
/// reported this one. The last number that was reported.
template <class Work>
int reportedByKilled(int number, Work&& work) {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    int last = -1;
    const auto receive = [&] { return ::read(ends[0], &last, sizeof last) == sizeof last; };
    {
        const ChildProcess killed([&] {
            work([&](int done) { return ::write(ends[1], &done, sizeof done) == sizeof done; });
            return 0;
        });
        close(ends[1]);
        while (last < number && receive()) continue;
    }
    while (receive()) continue;
    close(ends[0]);
    return last;
}

/// Whether work gives 0 in a process whose files can't grow beyond this size, as on a full disk. It gets a
/// function that lifts the limit.
template <class Work>
bool succeedsOnFullDisk(rlim_t size, Work&& work) {
    const auto limitFiles = [](rlim_t most) {
        rlimit limit{};
        getrlimit(RLIMIT_FSIZE, &limit);
        limit.rlim_cur = std::min(most, limit.rlim_max);
        setrlimit(RLIMIT_FSIZE, &limit);
    };
    return ChildProcess([&] {
               signal(SIGXFSZ, SIG_IGN);
               limitFiles(size);
               return work([&] { limitFiles(RLIM_INFINITY); });
           }).wait() == 0;
}

}  // namespace tovera::testing
