#include "platform/linux/network/progress_bar.h"

#include <algorithm>
#include <unistd.h>

namespace tovera {
namespace {

constexpr auto betweenPictures = std::chrono::milliseconds(200);
constexpr std::size_t width = 30;
/// Begins the terminal's line anew, empty.
constexpr const char* clearLine = "\r\x1b[K";

void print(const std::string& text) {
    [[maybe_unused]] const auto written = write(STDERR_FILENO, text.data(), text.size());
}

std::string megabytes(std::uint64_t bytes) {
    const auto tenths = bytes / 100'000;
    return std::to_string(tenths / 10) + '.' + std::to_string(tenths % 10) + " MB";
}

}  // namespace

std::string progressText(std::uint64_t received, std::uint64_t total) {
    if (total == 0) return megabytes(received);
    const double part = std::min(1.0, static_cast<double>(received) / static_cast<double>(total));
    const auto full = static_cast<std::size_t>(part * static_cast<double>(width));
    return '[' + std::string(full, '#') + std::string(width - full, ' ') + "] " +
           std::to_string(static_cast<int>(part * 100)) + " % of " + megabytes(total);
}

bool ProgressBar::hasTerminal() {
    return isatty(STDERR_FILENO) != 0;
}

void ProgressBar::show(std::uint64_t received, std::uint64_t total) {
    const auto now = Clock::now();
    if (now < next_) return;
    next_ = now + betweenPictures;
    isThere_ = true;
    print(clearLine + progressText(received, total));
}

ProgressBar::~ProgressBar() {
    if (isThere_) print(clearLine);
}

}  // namespace tovera
