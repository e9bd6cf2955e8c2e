#pragma once

#include <functional>
#include <vector>

#include "boxes/message_box.h"

namespace tovera::client {

/// While it lives, answers the message boxes of its thread from within their own message loop, after an
/// action that may be anything a user's click could set off. One at a time.
class BoxRecorder {
  public:
    explicit BoxRecorder(std::function<void()> action = [] {});
    BoxRecorder(const BoxRecorder&) = delete;
    BoxRecorder& operator=(const BoxRecorder&) = delete;
    ~BoxRecorder();

    const std::vector<ShownBox>& shown() const { return shown_; }

  private:
    static void CALLBACK look(HWND, UINT, UINT_PTR, DWORD);

    static BoxRecorder* current;
    std::function<void()> action_;
    std::vector<ShownBox> shown_;
    HWND answered_ = nullptr;
    UINT_PTR timer_;
};

}  // namespace tovera::client
