#pragma once

#include <atomic>
#include <memory>

#include "c_interface/tovera.h"
#include "platform/platform.h"

// What stands behind the opaque types of the header.

namespace tovera::c {

/// The services and ports that a host's objects are made with.
class HostPlatform {
  public:
    virtual ~HostPlatform() = default;
    virtual Platform& platform() = 0;
};

/// The number of the calling thread, which no later thread gets again.
inline std::uint64_t ownThread() {
    static std::atomic<std::uint64_t> last = 0;
    static thread_local std::uint64_t own = 0;
    if (own == 0) own = ++last;
    return own;
}

}  // namespace tovera::c

struct tovera_object {
    explicit tovera_object(tovera::ObjectRef target, std::shared_ptr<tovera::c::HostPlatform> maker = {})
        : host(std::move(maker)), object(std::move(target)) {}

    bool isOfThisThread() const { return thread == tovera::c::ownThread(); }

    std::shared_ptr<tovera::c::HostPlatform> host;  ///< outlives the object
    tovera::ObjectRef object;
    std::uint64_t thread = tovera::c::ownThread();
    std::atomic<unsigned> references = 1;
};

struct tovera_array {
    tovera::StringArray array;
};

struct tovera_host {
    std::shared_ptr<tovera::c::HostPlatform> platform;
};
