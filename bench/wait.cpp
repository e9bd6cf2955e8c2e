#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <thread>

#include "bench.h"
#include "shell/cls_windows.h"

using namespace tovera;

namespace bench {
namespace {

double now(clockid_t clock) {
    constexpr double nanoseconds = 1e9;
    timespec time{};
    clock_gettime(clock, &time);
    return static_cast<double>(time.tv_sec) * nanoseconds + static_cast<double>(time.tv_nsec);
}

template <class Work>
double spent(clockid_t clock, Work&& work) {
    const auto before = now(clock);
    work();
    return now(clock) - before;
}

struct Waits {
    Timing overshoot, processor;
};

/// Waits of a second, each beside a sleep of the same length on another thread, so that both meet the same
/// noise.
Waits measured() {
    constexpr int rounds = 50;
    constexpr double second = 1e9;
    auto folder = (std::filesystem::temp_directory_path() / "tovera-bench-XXXXXX").string();
    if (!mkdtemp(folder.data())) return {};
    for (const auto* const place : {"XDG_RUNTIME_DIR", "XDG_DATA_HOME"}) setenv(place, folder.c_str(), 1);
    Cls_Windows object;
    std::vector<double> ours, peer, busy, setUp;
    for (int round = 0; round < rounds; ++round) {
        std::thread sleeper([&] {
            peer.push_back(
                spent(CLOCK_MONOTONIC, [] { std::this_thread::sleep_for(std::chrono::seconds(1)); }) -
                second);
        });
        busy.push_back(spent(CLOCK_THREAD_CPUTIME_ID, [&] {
            ours.push_back(spent(CLOCK_MONOTONIC, [&] { object.Wait(1); }) - second);
        }));
        sleeper.join();
        setUp.push_back(spent(CLOCK_THREAD_CPUTIME_ID, [&] { object.Wait(0); }));
    }
    std::filesystem::remove_all(folder);
    const auto timing = [](std::vector<double> of, std::vector<double> against) {
        const auto left = median(std::move(of));
        const auto right = median(std::move(against));
        return Timing{left, right, right / left};
    };
    return {timing(ours, peer), timing(busy, setUp)};
}

const Waits& waits() {
    static const Waits all = measured();
    return all;
}

const Group group([] {
    constexpr double millisecond = 1e6;
    return std::vector<Row>{{"Wait(1): beyond the second",
                             {},
                             {"nanosleep", {}},
                             0,
                             [] { return waits().overshoot; },
                             2 * millisecond},
                            {"Wait(1): processor time",
                             {},
                             {"Wait(0), which doesn't wait", {}},
                             0,
                             [] { return waits().processor; },
                             millisecond / 10}};
});

}  // namespace
}  // namespace bench
