#pragma once

#include <cstdint>
#include <span>

#include "frame/records.h"
#include "frame/values.h"
#include "platform/port.h"

namespace tovera {

/// Index of `GetSystemMetrics`: the number of mouse buttons.
inline constexpr I4 mouseButtonsMetric = 43;

/// The state of all virtual keys: 1 in the lowest bit of a key that is toggled on, 1 in the highest of one
/// that is down.
inline constexpr std::size_t keyCount = 256;
using KeyStates = std::span<UI1, keyCount>;
using ConstKeyStates = std::span<const UI1, keyCount>;

/// Mouse and keyboard, of `user32`. Truth values are nonzero for yes.
struct Input : Port<Input> {
    /// Raises or lowers the display count of the cursor, which is hidden while that is negative; the new
    /// count.
    virtual I4 ShowCursor(I4 show) { return missingEntryPoint(show); }
    /// In pixels of the screen.
    virtual I4 SetCursorPos(I4 x, I4 y) { return missingEntryPoint(x, y); }
    virtual I4 GetCursorPos(PointApi& position) { return missingEntryPoint(position.x, position.y); }
    /// Whether the buttons were swapped before.
    virtual I4 SwapMouseButton(I4 swap) { return missingEntryPoint(swap); }
    virtual I4 GetSystemMetrics(I4 index) { return missingEntryPoint(index); }
    /// The time in milliseconds within which a second click makes a double click.
    virtual I4 GetDoubleClickTime() { return missingEntryPoint(); }

    virtual I4 GetKeyboardState(KeyStates states) { return missingEntryPoint(states.size()); }
    virtual I4 SetKeyboardState(ConstKeyStates states) { return missingEntryPoint(states.size()); }
};

Input& homeInput();

}  // namespace tovera
