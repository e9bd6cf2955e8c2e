#include "platform/timers.h"

#include <sys/resource.h>

#include "platform/linux/child_process.h"
#include "platform/linux/own_desktop.h"
#include "platform/linux/shell/shared_timer.h"
#include "shell/cls_windows.h"
#include "support/test_platform.h"

#if __has_include(<glib.h>)
#include "platform/linux/shell/gio_library.h"
#endif

namespace tovera::testing {
namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

template <class Work>
double secondsOf(Work&& work) {
    const auto before = Clock::now();
    work();
    return std::chrono::duration<double>(Clock::now() - before).count();
}

double processorSeconds() {
    rusage use{};
    getrusage(RUSAGE_SELF, &use);
    return static_cast<double>(use.ru_utime.tv_sec + use.ru_stime.tv_sec) +
           static_cast<double>(use.ru_utime.tv_usec + use.ru_stime.tv_usec) / 1e6;
}

TEST(LinuxWait, LastsAsLongAsItIsAsked) {
    const OwnDesktop desktop;
    Cls_Windows object;
    const auto busy = processorSeconds();
    const auto waited = secondsOf([&] { object.Wait(1); });
    EXPECT_GE(waited, 1.0);
    EXPECT_LT(waited, 1.2);
    EXPECT_LT(processorSeconds() - busy, 0.1);
    for (const I4 seconds : {0, -1, -2147483647 - 1})
        EXPECT_LT(secondsOf([&] { object.Wait(seconds); }), 0.2);
    EXPECT_TRUE(std::filesystem::exists(desktop / "run/tovera"));
}

/// Processes that wait on the timer of this one, for the time that each would have alone.
TEST(LinuxWait, TheLastCallerDecidesForAll) {
    const OwnDesktop desktop;
    for (const auto& [first, second] : {std::pair(60, 1), std::pair(1, 2)}) {
        const auto waited = secondsOf([&, first = first, second = second] {
            std::vector<pid_t> waiters;
            for (int i = 0; i < 6; ++i)
                waiters.push_back(start([&] {
                    // None ends before the last one's time, also where it asked for less.
                    return secondsOf([&] { Cls_Windows().Wait(first); }) < second ? 1 : 0;
                }));
            std::this_thread::sleep_for(300ms);
            Cls_Windows().Wait(second);
            for (const auto waiter : waiters) EXPECT_EQ(resultOf(waiter), 0);
        });
        EXPECT_GE(waited, second);
        EXPECT_LT(waited, second + 1.0);
    }
}

TEST(LinuxWait, OutlivesTheKillOfTheOneThatArmedIt) {
    const OwnDesktop desktop;
    const auto waited = secondsOf([] {
        const auto waiter = start([] {
            Cls_Windows().Wait(60);
            return 0;
        });
        std::this_thread::sleep_for(200ms);
        const auto armed = start([] {
            Cls_Windows().Wait(1);
            return 0;
        });
        std::this_thread::sleep_for(200ms);
        kill(armed, SIGKILL);
        resultOf(armed);
        EXPECT_EQ(resultOf(waiter), 0);
    });
    EXPECT_LT(waited, 2.5);
    EXPECT_FALSE(SharedTimer("toveraTimer").existed()) << "nothing to repair";
    EXPECT_LT(secondsOf([] { Cls_Windows().Wait(0); }), 0.2);
}

TEST(LinuxTimers, NamesFoldersAndForeignOnes) {
    OwnDesktop desktop;
    auto& timers = homeTimers();
    const auto first = timers.CreateWaitableTimerA(-1, {"a/b\xE9"});
    EXPECT_NE(first, 0);
    EXPECT_EQ(lastError(), 0);
    EXPECT_TRUE(std::filesystem::exists(desktop / "run/tovera/a_bé"));
    const auto second = timers.CreateWaitableTimerA(-1, {"a/b\xE9"});
    EXPECT_EQ(lastError(), timerExists);
    EXPECT_NE(timers.SetWaitableTimer(second, FileTime::ofCount(0), 0, 0), 0);
    EXPECT_EQ(timers.MsgWaitForMultipleObjects(1, first, 0, -1, 255), 0) << "armed through the other handle";
    EXPECT_EQ(timers.MsgWaitForMultipleObjects(1, first, 0, -1, 255), 0) << "it stays signalled";
    EXPECT_NE(timers.SetWaitableTimer(first, FileTime::ofCount(-600'000'000), 0, 0), 0);
    EXPECT_EQ(timers.MsgWaitForMultipleObjects(1, second, 0, 20, 255), 258);
    for (const auto handle : {first, second}) EXPECT_EQ(timers.CloseHandle(handle), 1);
    EXPECT_EQ(timers.CloseHandle(first), 0);
    EXPECT_EQ(timers.MsgWaitForMultipleObjects(1, first, 0, -1, 255), -1);
    // A folder that others may write isn't used, and a link isn't followed.
    std::filesystem::permissions(desktop / "run/tovera", std::filesystem::perms::all);
    EXPECT_EQ(runtimeFolder(), desktop / "data/tovera/run/tovera");
    std::filesystem::create_symlink(desktop / "x", desktop / "data/tovera/run/tovera/link");
    EXPECT_EQ(timers.CreateWaitableTimerA(-1, {"link"}), 0);
    EXPECT_FALSE(std::filesystem::exists(desktop / "x"));
    std::filesystem::remove_all(desktop / "data");
    std::ofstream(desktop / "data") << "in the way";
    EXPECT_LT(secondsOf([] { Cls_Windows().Wait(60); }), 0.5) << "where no timer can be made the wait ends";
}

#if __has_include(<glib.h>)
TEST(LinuxWait, ServesTheLoopOfAGLibHost) {
    if (!gio().glib.isPresent()) GTEST_SKIP() << "no GLib here";
    const OwnDesktop desktop;
    SharedLibrary glib("libglib-2.0.so.0");
    const EntryPoint<decltype(g_timeout_add)> addTimeout(glib, "g_timeout_add");
    const EntryPoint<decltype(g_source_remove)> removeSource(glib, "g_source_remove");
    const auto tick = [](gpointer count) -> gboolean {
        ++*static_cast<int*>(count);
        return G_SOURCE_CONTINUE;
    };
    int ticks = 0;
    const auto source = addTimeout(100, tick, &ticks);
    EXPECT_LT(secondsOf([] { Cls_Windows().Wait(1); }), 1.2);
    EXPECT_GE(ticks, 8);
    EXPECT_LE(ticks, 11);
    removeSource(source);
    const auto busySource = addTimeout(0, tick, &ticks);
    const auto waited = secondsOf([] { Cls_Windows().Wait(1); });
    EXPECT_GE(waited, 1.0);
    EXPECT_LT(waited, 1.2) << "a source that is always ready holds nobody";
    removeSource(busySource);
    // A handler that waits, too, arms the same timer anew.
    const auto waitsToo = [](gpointer) -> gboolean {
        Cls_Windows().Wait(1);
        return G_SOURCE_REMOVE;
    };
    addTimeout(300, waitsToo, nullptr);
    const auto nested = secondsOf([] { Cls_Windows().Wait(1); });
    EXPECT_GE(nested, 1.3);
    EXPECT_LT(nested, 1.6);
    // Another thread serves the loop: it isn't taken from it.
    auto* const context = gio().main_context_default();
    ASSERT_TRUE(gio().main_context_acquire(context));
    std::thread([] { EXPECT_LT(secondsOf([] { Cls_Windows().Wait(0); }), 0.2); }).join();
    gio().main_context_release(context);
}
#endif

}  // namespace
}  // namespace tovera::testing
