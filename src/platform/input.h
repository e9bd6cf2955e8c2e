#pragma once

#include "frame/values.h"
#include "platform/port.h"

namespace tovera {

/// Mouse and keyboard, of `user32`.
struct Input : Port<Input> {
    /// The time in milliseconds within which a second click makes a double click.
    virtual I4 GetDoubleClickTime() { return missingEntryPoint(); }
};

Input& homeInput();

}  // namespace tovera
