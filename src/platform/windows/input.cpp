#include "platform/input.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsInput : public Input {
    I4 ShowCursor(I4 show) override { return callEntryPoint<&::ShowCursor>(user32, show); }
    I4 SetCursorPos(I4 x, I4 y) override { return callEntryPoint<&::SetCursorPos>(user32, x, y); }
    I4 GetCursorPos(PointApi& position) override {
        POINT point{position.x, position.y};
        const I4 done = callEntryPoint<&::GetCursorPos>(user32, &point);
        position = {static_cast<I4>(point.x), static_cast<I4>(point.y)};
        return done;
    }
    I4 SwapMouseButton(I4 swap) override { return callEntryPoint<&::SwapMouseButton>(user32, swap); }
    I4 GetSystemMetrics(I4 index) override { return callEntryPoint<&::GetSystemMetrics>(user32, index); }
    I4 GetDoubleClickTime() override { return callEntryPoint<&::GetDoubleClickTime>(user32); }
    I4 GetKeyboardState(KeyStates states) override {
        return callEntryPoint<&::GetKeyboardState>(user32, states.data());
    }
    I4 SetKeyboardState(ConstKeyStates states) override {
        return callEntryPoint<&::SetKeyboardState>(user32, const_cast<BYTE*>(states.data()));  // only read
    }
};

}  // namespace

Input& homeInput() {
    static WindowsInput port;
    return port;
}

}  // namespace tovera
