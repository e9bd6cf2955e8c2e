#pragma once

#include "frame/crossing.h"
#include "platform/port.h"

namespace tovera {

/// Flags of `SetWindowPos`.
namespace windowFlags {
inline constexpr I4 noSize = 0x1;
inline constexpr I4 noMove = 0x2;
inline constexpr I4 noZOrder = 0x4;
inline constexpr I4 noActivate = 0x10;
inline constexpr I4 show = 0x40;
inline constexpr I4 hide = 0x80;
}  // namespace windowFlags

/// The windows of the desktop, of `user32`. A window is a number, 0 for none.
struct ScreenWindows : Port<ScreenWindows> {
    virtual I4 GetForegroundWindow() { return missingEntryPoint(); }
    /// The parent or owner of a window; 0 at the top.
    virtual I4 GetParent(I4 window) { return missingEntryPoint(window); }
    /// The length of a window's title; 0 without one.
    virtual I4 GetWindowTextLengthA(I4 window) { return missingEntryPoint(window); }
    /// As much of the title as the buffer holds with a NUL behind it; its length.
    virtual I4 GetWindowTextA(I4 window, AnsiText& buffer) { return missingEntryPoint(window, buffer); }
    /// The window with exactly this title, of this class; a null text stands for any.
    virtual I4 FindWindowA(const AnsiText& className, const AnsiText& title) {
        return missingEntryPoint(className, title);
    }
    virtual I4 BringWindowToTop(I4 window) { return missingEntryPoint(window); }
    virtual I4 SetActiveWindow(I4 window) { return missingEntryPoint(window); }
    virtual I4 SetWindowPos(I4 window, I4 insertAfter, I4 x, I4 y, I4 width, I4 height, I4 flags) {
        return missingEntryPoint(window, insertAfter, x, y, width, height, flags);
    }
};

ScreenWindows& homeScreenWindows();

}  // namespace tovera
