#include "platform/timers.h"
#include "shell/cls_windows.h"

namespace tovera {
namespace {

constexpr std::int64_t unitsPerSecond = 10'000'000;
constexpr auto atOnce = FileTime{0xFFFFFFFFU, 0xFFFFFFFFU};
constexpr I4 manualReset = -1;
constexpr I4 forEver = -1;
constexpr I4 allInput = 255;  ///< keys, mouse, messages, timers, painting, hot keys

/// A timer that is given back at the end.
class Timer {
  public:
    Timer(Platform& platform, const Bstr& name)
        : platform_(platform), handle_(platform.call(&Timers::CreateWaitableTimerA, manualReset, name)) {}
    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;
    ~Timer() {
        if (handle_ != 0) FailuresIgnored()([&] { platform_.call(&Timers::CloseHandle, handle_); });
    }

    explicit operator bool() const { return handle_ != 0; }
    void set(const FileTime& due) { platform_.call(&Timers::SetWaitableTimer, handle_, due, 0, 0); }
    I4 wait() { return platform_.call(&Timers::MsgWaitForMultipleObjects, 1, handle_, 0, forEver, allInput); }

  private:
    Platform& platform_;
    I4 handle_;
};

}  // namespace

void Cls_Windows::Wait(const I4& lNumberOfSeconds) {
    auto& services = platform_.services;
    Timer timer(platform_, join(services.facts().fileName, u"Timer"));
    const bool isFresh = lastError() != timerExists;
    if (!timer) return services.pumpMessages();
    if (isFresh) timer.set(atOnce);
    timer.set(FileTime::ofCount(-(lNumberOfSeconds * unitsPerSecond)));
    for (bool goesOn = true; goesOn;) {
        const auto result = timer.wait();
        services.pumpMessages();
        goesOn = result != waitResults::signalled && result != waitResults::failed;
    }
}

}  // namespace tovera
