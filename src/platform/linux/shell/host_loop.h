#pragma once

#include <poll.h>
#include <vector>

namespace tovera {

/// One pass over the events that wait for the calling thread, where the host has brought GLib and runs its
/// loop on this thread. A source that is always ready doesn't hold the caller.
void pumpHostLoop();

/// What the host's loop waits for, for the time of one wait of our own.
class HostLoopWait {
  public:
    /// Adds what the loop listens to behind the descriptors that are there.
    explicit HostLoopWait(std::vector<pollfd>& descriptors);
    HostLoopWait(const HostLoopWait&) = delete;
    HostLoopWait& operator=(const HostLoopWait&) = delete;
    ~HostLoopWait();

    /// How long the loop lets a wait last, in milliseconds; -1 for as long as it takes.
    int longest() const { return longest_; }
    /// Whether after the wait the loop has something to do.
    bool isReady(std::vector<pollfd>& descriptors) const;

  private:
    void* context_ = nullptr;
    std::size_t first_;
    int priority_ = 0;
    int longest_ = -1;
};

}  // namespace tovera
