#include "platform/screen_windows.h"
#include "shell/cls_windows.h"

namespace tovera {
namespace {

constexpr std::u16string_view taskbarClass = u"Shell_traywnd";
constexpr I4 nothingElse =
    windowFlags::noMove | windowFlags::noSize | windowFlags::noZOrder | windowFlags::noActivate;

}  // namespace

I4 Cls_Windows::Get_ActiveWindow(VariantBool ReturnParent) {
    auto window = platform_.call(&ScreenWindows::GetForegroundWindow);
    if (!ReturnParent) return window;
    for (auto parent = window; parent != 0; parent = platform_.call(&ScreenWindows::GetParent, window))
        window = parent;
    return window;
}

Bstr Cls_Windows::GetActiveWindowTitle(VariantBool ReturnParent) {
    return GetWindowTitleText(Get_ActiveWindow(ReturnParent));
}

Bstr Cls_Windows::Get_WindowTitle(I4 hwnd) {
    return GetWindowTitleText(hwnd);
}

Bstr Cls_Windows::GetWindowTitleText(I4 window) {
    const auto length =
        static_cast<std::size_t>(platform_.call(&ScreenWindows::GetWindowTextLengthA, window));
    Bstr buffer = std::u16string(length + 1, u' ');
    platform_.call(&ScreenWindows::GetWindowTextA, window, buffer);
    return left(buffer, length);
}

void Cls_Windows::placerBarreDesTaches(I4 flags) {
    const auto taskbar = platform_.call(&ScreenWindows::FindWindowA, Bstr(taskbarClass), Bstr(u""));
    if (taskbar != 0) platform_.call(&ScreenWindows::SetWindowPos, taskbar, 0, 0, 0, 0, 0, flags);
}

void Cls_Windows::Cacher_BarreDesTaches() {
    placerBarreDesTaches(windowFlags::hide | nothingElse);
}

void Cls_Windows::Montrer_BarreDesTaches() {
    placerBarreDesTaches(windowFlags::show | nothingElse);
}

}  // namespace tovera
