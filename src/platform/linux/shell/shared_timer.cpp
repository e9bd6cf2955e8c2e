#include "platform/linux/shell/shared_timer.h"

#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/timerfd.h>

#include "platform/linux/files/data_folder.h"
#include "platform/linux/files/file_facts.h"

namespace tovera {
namespace {

constexpr std::int64_t nanosecondsPerUnit = 100;
constexpr std::int64_t unitsPerSecond = 10'000'000;
constexpr std::int64_t nanosecondsPerSecond = 1'000'000'000;
/// From 1601 to 1970.
constexpr std::int64_t secondsBetweenEpochs = 11'644'473'600;

bool isOwnFolder(const std::string& folder) {
    const auto facts = factsOf(folder);
    return facts && S_ISDIR(facts->st_mode) && facts->st_uid == geteuid() && (facts->st_mode & 0077U) == 0;
}

std::string ownFolder(const std::string& above) {
    if (!above.starts_with('/') || !factsOf(above)) return {};
    auto folder = above + "/tovera";
    mkdir(folder.c_str(), 0700);
    return isOwnFolder(folder) ? folder : std::string();
}

/// Locks of the open file: they go with it, also when the process is killed, and hold between threads too.
bool lockFile(const FileDescriptor& file, short kind, int command) {
    struct flock lock {};
    lock.l_type = kind;
    lock.l_whence = SEEK_SET;
    int result = 0;
    do result = fcntl(file.get(), command, &lock);
    while (result != 0 && errno == EINTR);
    return result == 0;
}

using DueTime = SharedTimer::DueTime;

DueTime dueTimeOf(std::int64_t units) {
    if (units >= 0) {
        const auto seconds = units / unitsPerSecond - secondsBetweenEpochs;
        if (seconds < 0) return {CLOCK_MONOTONIC, 1};
        return {CLOCK_REALTIME, seconds * nanosecondsPerSecond + units % unitsPerSecond * nanosecondsPerUnit};
    }
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    std::int64_t due = 0;
    if (__builtin_mul_overflow(units, -nanosecondsPerUnit, &due) ||
        __builtin_add_overflow(due, now.tv_sec * nanosecondsPerSecond + now.tv_nsec, &due))
        due = INT64_MAX;
    return {CLOCK_MONOTONIC, due};
}

}  // namespace

std::string runtimeFolder() {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    auto folder = ownFolder(runtime ? runtime : "");
    if (!folder.empty()) return folder;
    for (const auto& made : {dataFolder(), dataFolder() + "/run"}) mkdir(made.c_str(), 0700);
    return ownFolder(dataFolder() + "/run");
}

SharedTimer::SharedTimer(const std::string& name) : clockKind_(CLOCK_MONOTONIC) {
    const auto folder = runtimeFolder();
    if (folder.empty()) return;
    const auto path = folder + '/' + name;
    file_ = FileDescriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600));
    if (!file_.isOpen()) return;
    existed_ = !lockFile(file_, F_WRLCK, F_OFD_SETLK);
    const bool isLocked = lockFile(file_, F_RDLCK, F_OFD_SETLKW);
    if (!isLocked) return;
    changes_.emplace(path);
    clock_ = FileDescriptor(timerfd_create(clockKind_, TFD_CLOEXEC | TFD_NONBLOCK));
    if (existed_) arm();
}

bool SharedTimer::set(std::int64_t units) {
    const auto due = dueTimeOf(units);
    const bool isTold = pwrite(file_.get(), &due, sizeof due, 0) == static_cast<ssize_t>(sizeof due);
    return armAt(due) && isTold;  // this wait ends in any case
}

void SharedTimer::follow() {
    changes_->forget();
    arm();
}

bool SharedTimer::arm() {
    DueTime due;
    return pread(file_.get(), &due, sizeof due, 0) == static_cast<ssize_t>(sizeof due) && armAt(due);
}

bool SharedTimer::armAt(const DueTime& due) {
    if (due.clock != CLOCK_MONOTONIC && due.clock != CLOCK_REALTIME) return false;
    if (due.clock != clockKind_) {
        clockKind_ = static_cast<std::int32_t>(due.clock);
        clock_ = FileDescriptor(timerfd_create(clockKind_, TFD_CLOEXEC | TFD_NONBLOCK));
    }
    itimerspec time{};
    time.it_value.tv_sec = due.nanoseconds / nanosecondsPerSecond;
    time.it_value.tv_nsec = due.nanoseconds % nanosecondsPerSecond;
    return timerfd_settime(clock_.get(), TFD_TIMER_ABSTIME, &time, nullptr) == 0;
}

}  // namespace tovera
