#include "platform/input.h"

#include "platform/windows/entry_point.h"

namespace tovera {
namespace {

class WindowsInput : public Input {
    I4 GetDoubleClickTime() override { return callEntryPoint<&::GetDoubleClickTime>(user32); }
};

}  // namespace

Input& homeInput() {
    static WindowsInput port;
    return port;
}

}  // namespace tovera
