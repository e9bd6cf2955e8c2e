#pragma once

#include "frame/crossing.h"
#include "platform/missing.h"

namespace tovera {

/// The entry points of `user32` that the classes call.
struct User32 {
    virtual ~User32() = default;

    /// Writes the OEM text source into target as ANSI text, with its terminating NUL where there is room.
    /// Nonzero on success.
    virtual I4 OemToCharA(const AnsiText& source, AnsiText& target) {
        return missingEntryPoint(source, target);
    }
};

}  // namespace tovera
