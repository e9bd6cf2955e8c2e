#pragma once

#include <chrono>
#include <cstdint>
#include <string>

namespace tovera {

/// A bar on the terminal that standard error goes to. It appears when a transfer has taken a while, and goes
/// with the object.
class ProgressBar {
  public:
    ProgressBar() = default;
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;
    ~ProgressBar();

    static bool hasTerminal();
    /// Bytes that have come, and those that there are, 0 where nobody knows.
    void show(std::uint64_t received, std::uint64_t total);

  private:
    using Clock = std::chrono::steady_clock;
    Clock::time_point next_ = Clock::now() + std::chrono::seconds(1);
    bool isThere_ = false;
};

/// What the bar shows.
std::string progressText(std::uint64_t received, std::uint64_t total);

}  // namespace tovera
