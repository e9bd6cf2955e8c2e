#include "platform/timers.h"

#include <algorithm>
#include <cerrno>
#include <map>
#include <memory>
#include <mutex>

#include "frame/last_error.h"
#include "frame/utf8.h"
#include "platform/linux/shell/host_loop.h"
#include "platform/linux/shell/shared_timer.h"
#include "platform/linux/text/ansi_buffer.h"

namespace tovera {
namespace {

constexpr I4 timedOut = 258;

/// Waits for the timer or for what the host's loop listens to; 0 or more as `poll` says it.
I4 waitOnce(const SharedTimer& timer, int milliseconds, bool& armedByOthers) {
    if (timer.clock() < 0) return waitResults::failed;
    std::vector<pollfd> descriptors{{timer.clock(), POLLIN, 0}, {timer.changes(), POLLIN, 0}};
    const HostLoopWait loop(descriptors);
    const auto longest = loop.longest() < 0 || (milliseconds >= 0 && milliseconds < loop.longest())
                             ? milliseconds
                             : loop.longest();
    int count = 0;
    do count = poll(descriptors.data(), static_cast<nfds_t>(descriptors.size()), longest);
    while (count < 0 && errno == EINTR);
    lastError() = count < 0 ? errno : 0;
    if (count < 0) return waitResults::failed;
    armedByOthers = descriptors[1].revents != 0;
    if (descriptors[0].revents != 0 && !armedByOthers) return waitResults::signalled;
    if (loop.isReady(descriptors)) return waitResults::input;
    return timedOut;
}

class LinuxTimers : public Timers {
    I4 CreateWaitableTimerA(I4 /*manualReset*/, const AnsiText& name) override {
        auto file = toUtf8(textOf(name));
        std::ranges::replace(file, '/', '_');
        auto timer = std::make_shared<SharedTimer>(file);
        lastError() = !timer->isOpen() ? errno : timer->existed() ? timerExists : 0;
        if (!timer->isOpen()) return 0;
        const std::lock_guard guard(mutex_);
        timers_.emplace(++last_, std::move(timer));
        return last_;
    }
    I4 SetWaitableTimer(I4 timer, const FileTime& dueTime, I4 /*period*/, I4 /*resume*/) override {
        const auto found = find(timer);
        return found && found->set(dueTime.count()) ? 1 : 0;
    }
    I4 MsgWaitForMultipleObjects(I4 /*count*/, const I4& handle, I4 /*waitAll*/, I4 milliseconds,
                                 I4 /*wakeMask*/) override {
        const auto timer = find(handle);
        if (!timer) return waitResults::failed;
        for (;;) {
            bool armedByOthers = false;
            const auto result = waitOnce(*timer, milliseconds, armedByOthers);
            if (armedByOthers) timer->follow();
            if (result != timedOut || (milliseconds >= 0 && !armedByOthers)) return result;
        }
    }
    I4 CloseHandle(I4 handle) override {
        const std::lock_guard guard(mutex_);
        return timers_.erase(handle) != 0 ? 1 : 0;
    }

    std::shared_ptr<SharedTimer> find(I4 timer) {
        const std::lock_guard guard(mutex_);
        const auto found = timers_.find(timer);
        return found == timers_.end() ? nullptr : found->second;
    }

    std::mutex mutex_;
    std::map<I4, std::shared_ptr<SharedTimer>> timers_;
    I4 last_ = 0;
};

}  // namespace

Timers& homeTimers() {
    // Stays for threads that still wait while the process ends.
    static auto& port = *std::make_unique<LinuxTimers>().release();
    return port;
}

}  // namespace tovera
