#pragma once

#include <cstdint>

#include "frame/values.h"

namespace tovera {

/// A handle of the system as the number that the classes carry, and back. Only for handles that have no more
/// than 32 significant bits in either bitness: windows, keys, timers; `wide_handles.h` is for all others.
/// Numbers widen with their sign, so that those of the registry's root keys stay what they are.
template <class Handle>
Handle handleOf(I4 number) {
    return reinterpret_cast<Handle>(static_cast<std::intptr_t>(number));
}

template <class Handle>
I4 numberOfHandle(Handle handle) {
    return static_cast<I4>(reinterpret_cast<std::intptr_t>(handle));
}

}  // namespace tovera
