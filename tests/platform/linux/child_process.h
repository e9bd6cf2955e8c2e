#pragma once

#include <algorithm>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace tovera::testing {

/// Whether a process with threads can be forked for more work: a fork leaves the locks of the address
/// sanitizer's memory as they are, and the new process waits for one that nobody gives back.
#ifdef __SANITIZE_ADDRESS__
inline constexpr bool canForkBesideThreads = false;
#else
inline constexpr bool canForkBesideThreads = true;
#endif

/// Starts work in a process that ends with its result, without what the test has set up for its end.
template <class Work>
pid_t start(Work&& work) {
    const auto process = fork();
    if (process == 0) _exit(work());
    return process;
}

/// What work gave, or -1 when its process was killed.
inline int resultOf(pid_t process) {
    int status = 0;
    waitpid(process, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

/// Whether work gives 0 in a process of its own: for each number below count one, all at the same time.
template <class Work>
bool succeedsInEach(int count, Work&& work) {
    std::vector<pid_t> processes;
    for (int i = 0; i < count; ++i) processes.push_back(start([&] { return work(i); }));
    return std::ranges::count_if(processes, resultOf) == 0;
}

/// Whether work gives 0 for a user that the permissions of files bind.
template <class Work>
bool succeedsForOthers(Work&& work) {
    constexpr uid_t nobody = 65534;
    return resultOf(start([&] { return geteuid() == 0 && setuid(nobody) != 0 ? 1 : work(); })) == 0;
}

/// Runs work, which reports what it has done by ascending numbers, in a process that is killed once it has
/// reported this one. The last number that was reported.
template <class Work>
int reportedByKilled(int number, Work&& work) {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const auto process = start([&] {
        work([&](int done) { return ::write(ends[1], &done, sizeof done) == sizeof done; });
        return 0;
    });
    close(ends[1]);
    int last = -1;
    while (::read(ends[0], &last, sizeof last) == sizeof last) {
        if (last == number) ::kill(process, SIGKILL);
    }
    close(ends[0]);
    resultOf(process);
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
    return resultOf(start([&] {
               signal(SIGXFSZ, SIG_IGN);
               limitFiles(size);
               return work([&] { limitFiles(RLIM_INFINITY); });
           })) == 0;
}

}  // namespace tovera::testing
