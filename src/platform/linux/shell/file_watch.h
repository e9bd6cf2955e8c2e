#pragma once

#include <string>
#include <sys/types.h>

#include "platform/linux/files/file_descriptor.h"

namespace tovera {

/// Tells when a file is written to, by a descriptor that becomes readable. What the system needs for it is
/// kept for the next watch: giving it back takes the system some ten milliseconds.
class FileWatch {
  public:
    explicit FileWatch(const std::string& path);
    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;
    ~FileWatch();

    bool isOpen() const { return watch_ >= 0; }
    int descriptor() const { return events_.get(); }
    /// Forgets the writes until now.
    void forget();

  private:
    FileDescriptor events_;
    pid_t process_;  ///< a forked process shares the events with its maker, and leaves them to it
    int watch_ = -1;
};

}  // namespace tovera
