#pragma once

#include <optional>
#include <string>

#include "frame/records.h"

// The mouse of the X display. Without a display nothing happens.
namespace tovera {

/// Hides the cursor on the whole screen, or shows it again.
void hideCursor(bool hide);

std::optional<PointApi> pointerPosition();
bool movePointer(PointApi position);

/// Whether the left and right buttons were swapped before; nothing without a display.
std::optional<bool> swapButtons(bool swap);

/// The most buttons of any mouse that the system knows, from this folder of its input devices; nothing
/// without a mouse.
std::optional<I4> mouseButtons(const std::string& inputDevices = "/sys/class/input");

/// The desktop's double click time in milliseconds, where it has set one.
std::optional<I4> doubleClickTime();

/// The number of an entry in the desktop's settings as they lie in their property; nothing where they have
/// none.
std::optional<I4> settingIn(std::string_view settings, std::string_view name);

bool hasDisplay();

}  // namespace tovera
