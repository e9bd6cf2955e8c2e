#pragma once

#include <atomic>

namespace tovera {

/// What keeps the component loaded: its objects and the locks of its factories, on whatever thread.
class ModuleState {
  public:
    static void addObject() noexcept { ++objects_; }
    static void removeObject() noexcept { --objects_; }
    static void addLock() noexcept { ++locks_; }
    /// False when there is none to remove, which leaves what is counted as it was.
    static bool removeLock() noexcept {
        long held = locks_;
        while (held > 0 && !locks_.compare_exchange_weak(held, held - 1)) {
        }
        return held > 0;
    }
    static bool isIdle() noexcept { return objects_ == 0 && locks_ == 0; }

  private:
    static inline std::atomic<long> objects_ = 0;
    static inline std::atomic<long> locks_ = 0;
};

}  // namespace tovera
