#include "platform/linux/files/patient_lock.h"

#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <fcntl.h>
#include <iostream>
#include <memory>
#include <mutex>
#include <sys/file.h>
#include <system_error>
#include <thread>

namespace tovera {
namespace {

int lock(int file, int operation) {
    while (flock(file, operation) != 0)
        if (errno != EINTR) return errno;
    return 0;
}

/// A thread that stands in the system's own queue for the lock, and is left behind there when it takes too
/// long: asking again and again would let others pass.
class Waiter {
  public:
    explicit Waiter(const FileDescriptor& file)
        : answer_(std::make_shared<Answer>()), copy_(fcntl(file.get(), F_DUPFD_CLOEXEC, 0)) {
        if (!copy_.isOpen()) throw std::system_error(errno, std::generic_category());
        std::thread([answer = answer_, copy = std::move(copy_)] {
            const int error = lock(copy.get(), LOCK_EX);
            const std::lock_guard guard(answer->mutex);
            answer->error = error;
            answer->isThere = true;
            answer->arrived.notify_one();
        }).detach();
    }

    bool hasAnswerAfter(std::chrono::milliseconds time) {
        std::unique_lock guard(answer_->mutex);
        return answer_->arrived.wait_for(guard, time, [&] { return answer_->isThere; });
    }
    int answer() const { return answer_->error; }

  private:
    struct Answer {
        std::mutex mutex;
        std::condition_variable arrived;
        bool isThere = false;
        int error = 0;
    };

    std::shared_ptr<Answer> answer_;
    FileDescriptor copy_;
};

}  // namespace

int lockPatiently(const FileDescriptor& file, const std::string& name, Patience patience) try {
    if (const int error = lock(file.get(), LOCK_EX | LOCK_NB); error != EWOULDBLOCK) return error;
    Waiter waiter(file);
    if (waiter.hasAnswerAfter(patience.untilTold)) return waiter.answer();
    std::cerr << "tovera: another program has locked " << name << "; waiting" << std::endl;
    if (waiter.hasAnswerAfter(patience.untilGivenUp - patience.untilTold)) return waiter.answer();
    std::cerr << "tovera: given up, since " << name << " is still locked" << std::endl;
    return EBUSY;
} catch (const std::system_error& failure) {
    return failure.code().value();
}

}  // namespace tovera
