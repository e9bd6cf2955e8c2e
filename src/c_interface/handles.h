#pragma once

#include <atomic>
#include <memory>
#include <thread>

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

}  // namespace tovera::c

struct tovera_object {
    explicit tovera_object(tovera::ObjectRef target, std::shared_ptr<tovera::c::HostPlatform> maker = {})
        : host(std::move(maker)), object(std::move(target)) {}

    bool isOfThisThread() const { return thread == std::this_thread::get_id(); }

    std::shared_ptr<tovera::c::HostPlatform> host;  ///< outlives the object
    tovera::ObjectRef object;
    std::thread::id thread = std::this_thread::get_id();
    std::atomic<unsigned> references = 1;
};

struct tovera_array {
    tovera::StringArray array;
};

struct tovera_host {
    std::shared_ptr<tovera::c::HostPlatform> platform;
};
