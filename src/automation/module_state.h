#pragma once

#include <atomic>

namespace tovera {

/// What keeps the component loaded: its objects, references to its factories and their locks, on whatever
/// thread.
class ModuleState {
  public:
    static void addReference() noexcept { ++references_; }
    static void removeReference() noexcept { --references_; }
    static void addLock() noexcept { ++locks_; }
    /// False when there is none to remove, which leaves what is counted as it was.
    static bool removeLock() noexcept {
        long held = locks_;
        while (held > 0 && !locks_.compare_exchange_weak(held, held - 1)) {
        }
        return held > 0;
    }
    static bool isIdle() noexcept { return references_ == 0 && locks_ == 0; }

  private:
    static inline std::atomic<long> references_ = 0;
    static inline std::atomic<long> locks_ = 0;
};

}  // namespace tovera
