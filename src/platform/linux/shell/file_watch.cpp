#include "platform/linux/shell/file_watch.h"

#include <array>
#include <memory>
#include <mutex>
#include <sys/inotify.h>
#include <unistd.h>
#include <vector>

namespace tovera {
namespace {

/// Descriptors without a watch, of this process alone.
class KeptEvents {
  public:
    FileDescriptor take() {
        const std::lock_guard guard(mutex_);
        leaveToMaker();
        if (kept_.empty()) return FileDescriptor(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
        auto events = std::move(kept_.back());
        kept_.pop_back();
        return events;
    }
    void give(FileDescriptor events) {
        const std::lock_guard guard(mutex_);
        leaveToMaker();
        kept_.push_back(std::move(events));
    }

  private:
    void leaveToMaker() {
        if (process_ == getpid()) return;
        kept_.clear();
        process_ = getpid();
    }
    std::mutex mutex_;
    pid_t process_ = getpid();
    std::vector<FileDescriptor> kept_;
};

KeptEvents& keptEvents() {
    // Stays for what is watched when the process ends.
    static auto& kept = *std::make_unique<KeptEvents>().release();
    return kept;
}

}  // namespace

FileWatch::FileWatch(const std::string& path) : events_(keptEvents().take()), process_(getpid()) {
    forget();
    watch_ = inotify_add_watch(events_.get(), path.c_str(), IN_MODIFY);
}

FileWatch::~FileWatch() {
    if (process_ != getpid() || !events_.isOpen()) return;
    if (watch_ >= 0) inotify_rm_watch(events_.get(), watch_);
    keptEvents().give(std::move(events_));
}

void FileWatch::forget() {
    std::array<char, 4096> events;
    while (read(events_.get(), events.data(), events.size()) > 0) {
    }
}

}  // namespace tovera
