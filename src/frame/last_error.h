#pragma once

#include "frame/values.h"

namespace tovera {

/// The platform's error number as it stood after the thread's latest call of a platform entry point.
/// The ports write it, methods read it.
inline I4& lastError() {
    thread_local I4 saved = 0;
    return saved;
}

}  // namespace tovera
