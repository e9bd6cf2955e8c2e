#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "platform/linux/files/file_descriptor.h"
#include "platform/linux/shell/file_watch.h"

namespace tovera {

/// A timer that all processes of the user reach by its name. When it is due stands in a file, which is locked
/// by who uses it; each has a clock of the system's of its own, which follows the file.
class SharedTimer {
  public:
    /// What the file holds, in one write: a clock of the system's, and its time.
    struct DueTime {
        std::int64_t clock = 0;
        std::int64_t nanoseconds = 0;
    };

    /// Opens the timer of this name, or makes it. Throws nothing; `isOpen` tells.
    explicit SharedTimer(const std::string& name);

    bool isOpen() const { return clock_.isOpen() && file_.isOpen() && changes_ && changes_->isOpen(); }
    /// Whether others used it already.
    bool existed() const { return existed_; }

    /// Arms it for all who use it: a negative count of 100-nanosecond units from now, or a time since the
    /// year 1601.
    bool set(std::int64_t units);

    /// Readable once the timer has fired, until it is armed anew.
    int clock() const { return clock_.get(); }
    /// Readable when the timer has been armed by others; then `follow`.
    int changes() const { return changes_->descriptor(); }
    void follow();

  private:
    bool arm();
    bool armAt(const DueTime& due);

    FileDescriptor file_, clock_;
    std::optional<FileWatch> changes_;
    std::int32_t clockKind_ = 0;
    bool existed_ = false;
};

/// The folder of what the user's processes share while they run, with mode 0700; empty where there can be
/// none.
std::string runtimeFolder();

}  // namespace tovera
