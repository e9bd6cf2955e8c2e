#include "boxes/box_recorder.h"

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
    const HWND box = findMessageBox();
    if (!box || box == current->answered_) return;
    current->answered_ = box;
    current->shown_.push_back(read(box));
    current->action_();
    accept(box);
}

}  // namespace tovera::client
