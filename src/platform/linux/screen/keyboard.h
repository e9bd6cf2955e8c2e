#pragma once

#include <array>

#include "platform/input.h"

namespace tovera {

/// Reads the state of the keys of the X display: which are down, and the three lock keys. False without a
/// display.
bool readDisplayKeys(std::array<UI1, keyCount>& states);

/// Turns a lock key (20, 144, 145) on or off for the whole display. False without a display.
bool setLockKey(std::size_t key, bool on);

constexpr bool isLockKey(std::size_t key) {
    return key == 20 || key == 144 || key == 145;
}

}  // namespace tovera
