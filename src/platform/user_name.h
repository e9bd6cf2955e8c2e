#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// The user who is logged on, of `advapi32`.
struct UserName : Port<UserName> {
    /// Writes the user's name with its NUL into a buffer. Size is the room when it comes in and the length
    /// with the NUL when it goes out. Nonzero on success.
    virtual I4 GetUserNameA(AnsiText& name, I4& size) { return missingEntryPoint(name, size); }
};

UserName& homeUserName();

}  // namespace tovera
