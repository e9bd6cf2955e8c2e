#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Text of the OEM code page, of `user32`.
struct OemText : Port<OemText> {
    /// Writes the OEM text source into target as ANSI text, with its terminating NUL where there is room.
    /// Nonzero on success.
    virtual I4 OemToCharA(const AnsiText& source, AnsiText& target) {
        return missingEntryPoint(source, target);
    }
};

OemText& homeOemText();

}  // namespace tovera
