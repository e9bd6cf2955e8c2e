#pragma once

#include <cstdint>
#include <map>

#include "frame/values.h"
#include "platform/windows/exclusive.h"

namespace tovera {

/// Numbers for those of the system's handles that are addresses, and so wider than the numbers that classes
/// carry. A handle keeps its number until it is closed; 0 stands for none.
class WideHandles {
  public:
    I4 add(std::uintptr_t handle) {
        const Exclusive exclusive(lock_);
        do last_ = last_ == maxI4 ? 1 : last_ + 1;
        while (handles_.contains(last_));
        handles_.emplace(last_, handle);
        return last_;
    }
    std::uintptr_t find(I4 number) {
        const Exclusive exclusive(lock_);
        const auto found = handles_.find(number);
        return found == handles_.end() ? 0 : found->second;
    }
    /// Takes a handle out, to be closed.
    std::uintptr_t take(I4 number) {
        const Exclusive exclusive(lock_);
        const auto found = handles_.extract(number);
        return found.empty() ? 0 : found.mapped();
    }

  private:
    static constexpr I4 maxI4 = 0x7FFFFFFF;

    SRWLOCK lock_ = SRWLOCK_INIT;
    std::map<I4, std::uintptr_t> handles_;
    I4 last_ = 0;
};

}  // namespace tovera
