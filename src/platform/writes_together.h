#pragma once

#include "platform/platform.h"
#include "platform/profiles.h"

namespace tovera {

/// The platform for a member that writes many entries of profile files and doesn't look at what became of
/// each: they reach the disk together at the end of this object, and before that nobody sees any of them.
class WritesTogether {
  public:
    explicit WritesTogether(const Platform& platform)
        : profiles_(platform.port<Profiles>().keepingWrites()),
          platform_(profiles_ ? platform.with(*profiles_) : platform) {}
    WritesTogether(const WritesTogether&) = delete;
    WritesTogether& operator=(const WritesTogether&) = delete;

    Platform& platform() { return platform_; }

  private:
    std::unique_ptr<Profiles> profiles_;
    Platform platform_;
};

}  // namespace tovera
