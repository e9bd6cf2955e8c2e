#include "platform/input.h"

namespace tovera {
namespace {

/// What Windows starts with.
constexpr I4 usualDoubleClickTime = 500;

class LinuxInput : public Input {
    I4 GetDoubleClickTime() override { return usualDoubleClickTime; }
};

}  // namespace

Input& homeInput() {
    static LinuxInput port;
    return port;
}

}  // namespace tovera
