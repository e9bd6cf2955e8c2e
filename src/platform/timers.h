#pragma once

#include <cstdint>

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// A signed count of 100-nanosecond units in two words. A negative one is a span from now, others are
/// absolute times from the year 1601 on.
struct FileTime {
    std::uint32_t dwLowDateTime = 0;
    std::uint32_t dwHighDateTime = 0;
    friend bool operator==(const FileTime&, const FileTime&) = default;

    static FileTime ofCount(std::int64_t units) {
        const auto bits = static_cast<std::uint64_t>(units);
        return {static_cast<std::uint32_t>(bits), static_cast<std::uint32_t>(bits >> 32U)};
    }
    std::int64_t count() const {
        return static_cast<std::int64_t>(std::uint64_t{dwHighDateTime} << 32U | dwLowDateTime);
    }
};

/// The last error of a timer's creation whose name is already in use.
inline constexpr I4 timerExists = 183;

/// Results of a wait for one handle.
namespace waitResults {
inline constexpr I4 signalled = 0;
inline constexpr I4 input = 1;
inline constexpr I4 failed = -1;
}  // namespace waitResults

/// Named timers that all processes of one log-on share, of `kernel32`, and the wait for one of `user32`.
struct Timers : Port<Timers> {
    /// A new timer, or the existing one of that name, which the last error tells. 0 on failure.
    virtual I4 CreateWaitableTimerA(I4 manualReset, const AnsiText& name) {
        return missingEntryPoint(manualReset, name);
    }
    /// Arms a timer anew, for all who wait for it. Nonzero on success.
    virtual I4 SetWaitableTimer(I4 timer, const FileTime& dueTime, I4 period, I4 resume) {
        return missingEntryPoint(timer, dueTime, period, resume);
    }
    /// Waits until the handle is signalled or input has come for the calling thread. -1 milliseconds is for
    /// ever.
    virtual I4 MsgWaitForMultipleObjects(I4 count, const I4& handle, I4 waitAll, I4 milliseconds,
                                         I4 wakeMask) {
        return missingEntryPoint(count, handle, waitAll, milliseconds, wakeMask);
    }
    virtual I4 CloseHandle(I4 handle) { return missingEntryPoint(handle); }
};

Timers& homeTimers();

}  // namespace tovera
