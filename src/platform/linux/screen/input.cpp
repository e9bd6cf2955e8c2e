#include "platform/input.h"

#include <mutex>

#include "platform/linux/screen/key_table.h"
#include "platform/linux/screen/keyboard.h"
#include "platform/linux/screen/pointer.h"

namespace tovera {
namespace {

constexpr I4 usualDoubleClickTime = 500;  // what Windows starts with
constexpr I4 usualMouseButtons = 3;       // of a display whose mouse is no device of this machine

class LinuxInput : public Input {
  public:
    I4 ShowCursor(I4 show) override {
        const std::lock_guard guard(cursorMutex_);
        const I4 count = show != 0 ? ++displayCount_ : --displayCount_;
        if (show != 0 && count == 0) hideCursor(false);
        if (show == 0 && count == -1) hideCursor(true);
        return count;
    }
    I4 SetCursorPos(I4 x, I4 y) override { return movePointer({x, y}) ? 1 : 0; }
    I4 GetCursorPos(PointApi& position) override {
        const auto found = pointerPosition();
        if (found) position = *found;
        return found ? 1 : 0;
    }
    I4 SwapMouseButton(I4 swap) override { return swapButtons(swap != 0).value_or(false) ? 1 : 0; }
    I4 GetSystemMetrics(I4 index) override {
        if (index != mouseButtonsMetric) return 0;
        return mouseButtons().value_or(hasDisplay() ? usualMouseButtons : 0);
    }
    I4 GetDoubleClickTime() override { return doubleClickTime().value_or(usualDoubleClickTime); }

    I4 GetKeyboardState(KeyStates states) override {
        KeyTable::States real;
        readDisplayKeys(real);
        table().get(real, states);
        return 1;
    }
    I4 SetKeyboardState(ConstKeyStates states) override {
        KeyTable::States real;
        readDisplayKeys(real);
        table().set(real, states, [](std::size_t key, UI1 state) {
            return isLockKey(key) && setLockKey(key, (state & 1U) != 0);
        });
        return 1;
    }

  private:
    static KeyTable& table() {
        thread_local KeyTable ofThread;
        return ofThread;
    }
    std::mutex cursorMutex_;  ///< of the count and what it does
    I4 displayCount_ = 0;
};

}  // namespace

Input& homeInput() {
    static LinuxInput port;
    return port;
}

}  // namespace tovera
