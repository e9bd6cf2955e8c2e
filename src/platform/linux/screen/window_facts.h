#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/linux/screen/x_display.h"

#if __has_include(<xcb/xcb.h>)

// Windows of the display by the rules that window managers keep (EWMH).
namespace tovera {

/// The window that has the user's attention; 0 when none has.
xcb_window_t activeWindow(XDisplay& display);

/// The window that a window stands in front of as its dialog; 0 at the top, and in a circle.
xcb_window_t ownerOf(XDisplay& display, xcb_window_t window);

std::u16string titleOf(XDisplay& display, xcb_window_t window);

/// The topmost of the windows that users have opened; 0 when there is none.
xcb_window_t topWindow(XDisplay& display);

/// The topmost window whose title is exactly that in the ANSI code page; 0 when there is none.
xcb_window_t windowTitled(XDisplay& display, std::string_view ansiTitle);

/// The panels of the desktop, hidden ones too.
std::vector<xcb_window_t> panels(XDisplay& display);

}  // namespace tovera

#endif
