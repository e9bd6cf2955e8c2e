#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tovera {

/// A mounted file system, as the kernel lists it.
struct Mount {
    std::string device;  ///< its numbers, "8:1"
    std::string folder;
    std::string fileSystem;
    std::string source;

    friend bool operator==(const Mount&, const Mount&) = default;
};

/// Reads the kernel's list (`/proc/self/mountinfo`). Lines of another form are passed over.
std::vector<Mount> readMountList(std::string_view list);

}  // namespace tovera
