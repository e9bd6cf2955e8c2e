#pragma once

#include <atomic>

// Stands in for GoogleTest's class of this name, which needs more threading than the run-time library of the
// cross compiler has.
namespace testing::internal {

class Notification {
  public:
    void Notify() { notified_ = true; }
    void WaitForNotification() const {
        while (!notified_) {
        }
    }

  private:
    std::atomic<bool> notified_ = false;
};

}  // namespace testing::internal
