#pragma once

#include "platform/windows/system.h"

namespace tovera {

/// Holds a lock of the system while it lives: no other thread passes meanwhile.
class Exclusive {
  public:
    explicit Exclusive(SRWLOCK& lock) : lock_(lock) { AcquireSRWLockExclusive(&lock_); }
    Exclusive(const Exclusive&) = delete;
    Exclusive& operator=(const Exclusive&) = delete;
    ~Exclusive() { ReleaseSRWLockExclusive(&lock_); }

  private:
    SRWLOCK& lock_;
};

}  // namespace tovera
