#include "platform/timers.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"

namespace tovera {
namespace {

class WindowsTimers : public Timers {
    I4 CreateWaitableTimerA(I4 manualReset, const AnsiText& name) override {
        return numberOfHandle(callEntryPoint<&::CreateWaitableTimerA>(kernel32, nullptr, manualReset, name));
    }
    I4 SetWaitableTimer(I4 timer, const FileTime& dueTime, I4 period, I4 resume) override {
        LARGE_INTEGER due;
        due.QuadPart = dueTime.count();
        return callEntryPoint<&::SetWaitableTimer>(kernel32, handleOf<HANDLE>(timer), &due, period, nullptr,
                                                   nullptr, resume);
    }
    I4 MsgWaitForMultipleObjects(I4 count, const I4& handle, I4 waitAll, I4 milliseconds,
                                 I4 wakeMask) override {
        auto* const waited = handleOf<HANDLE>(handle);
        return callEntryPoint<&::MsgWaitForMultipleObjects>(user32, count, &waited, waitAll, milliseconds,
                                                            wakeMask);
    }
    I4 CloseHandle(I4 handle) override {
        return callEntryPoint<&::CloseHandle>(kernel32, handleOf<HANDLE>(handle));
    }
};

}  // namespace

Timers& homeTimers() {
    static WindowsTimers port;
    return port;
}

}  // namespace tovera
