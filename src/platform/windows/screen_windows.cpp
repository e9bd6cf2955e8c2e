#include "platform/screen_windows.h"

#include "platform/windows/entry_point.h"
#include "platform/windows/handles.h"

namespace tovera {
namespace {

class SystemWindows : public ScreenWindows {
    I4 GetForegroundWindow() override {
        return numberOfHandle(callEntryPoint<&::GetForegroundWindow>(user32));
    }
    I4 GetParent(I4 window) override {
        return numberOfHandle(callEntryPoint<&::GetParent>(user32, handleOf<HWND>(window)));
    }
    I4 GetWindowTextLengthA(I4 window) override {
        return callEntryPoint<&::GetWindowTextLengthA>(user32, handleOf<HWND>(window));
    }
    I4 GetWindowTextA(I4 window, AnsiText& buffer) override {
        return callEntryPoint<&::GetWindowTextA>(user32, handleOf<HWND>(window), buffer, roomIn(buffer));
    }
    I4 FindWindowA(const AnsiText& className, const AnsiText& title) override {
        return numberOfHandle(callEntryPoint<&::FindWindowA>(user32, className, title));
    }
    I4 BringWindowToTop(I4 window) override {
        return callEntryPoint<&::BringWindowToTop>(user32, handleOf<HWND>(window));
    }
    I4 SetActiveWindow(I4 window) override {
        return numberOfHandle(callEntryPoint<&::SetActiveWindow>(user32, handleOf<HWND>(window)));
    }
    I4 SetWindowPos(I4 window, I4 insertAfter, I4 x, I4 y, I4 width, I4 height, I4 flags) override {
        return callEntryPoint<&::SetWindowPos>(user32, handleOf<HWND>(window), handleOf<HWND>(insertAfter), x,
                                               y, width, height, flags);
    }
};

}  // namespace

ScreenWindows& homeScreenWindows() {
    static SystemWindows port;
    return port;
}

}  // namespace tovera
