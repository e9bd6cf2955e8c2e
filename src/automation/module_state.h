#pragma once

#include <atomic>

namespace tovera {

/// What keeps the component loaded: its objects and the locks of its factories, on whatever thread.
class ModuleState {
  public:
    static void hold() noexcept { ++holders(); }
    static void letGo() noexcept { --holders(); }
    static bool isIdle() noexcept { return holders() == 0; }

  private:
    static std::atomic<long>& holders() noexcept {
        static constinit std::atomic<long> count = 0;
        return count;
    }
};

}  // namespace tovera
