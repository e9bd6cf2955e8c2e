#pragma once

#include <windows.h>

namespace tovera::client {

/// Microseconds since an arbitrary moment.
inline double microseconds() {
    LARGE_INTEGER frequency{};
    LARGE_INTEGER now{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&now);
    return 1e6 * static_cast<double>(now.QuadPart) / static_cast<double>(frequency.QuadPart);
}

}  // namespace tovera::client
