#include "boxes/box_recorder.h"

#include "client/com.h"

namespace tovera::client {

BoxRecorder* BoxRecorder::current = nullptr;

BoxRecorder::BoxRecorder(std::function<void()> action)
    : action_(std::move(action)), timer_(SetTimer(nullptr, 0, 20, look)) {
    current = this;
}

BoxRecorder::~BoxRecorder() {
    KillTimer(nullptr, timer_);
    current = nullptr;
}

void BoxRecorder::look(HWND, UINT, UINT_PTR, DWORD) {
    const HWND box = findMessageBox(GetCurrentThreadId());
    if (!box || box == current->answered_) return;
    current->answered_ = box;
    current->shown_.push_back(read(box));
    current->action_();
    accept(box);
}

std::ostream& operator<<(std::ostream& out, const ShownBox& box) {
    return out << "[" << utf8(box.title) << "] " << utf8(box.text) << " flags " << box.flags;
}

}  // namespace tovera::client
