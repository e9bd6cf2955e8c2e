#pragma once

#include <utility>

#include "platform/windows/system.h"

namespace tovera {

/// Counted pointer to a COM interface; may be nothing.
template <class Interface>
class ComPointer {
  public:
    ComPointer() = default;
    /// Takes a reference of its own.
    explicit ComPointer(Interface* borrowed) : pointer_(borrowed) {
        if (pointer_) pointer_->AddRef();
    }
    ComPointer(const ComPointer& other) : ComPointer(other.pointer_) {}
    ComPointer(ComPointer&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    ComPointer& operator=(ComPointer other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~ComPointer() {
        if (pointer_) pointer_->Release();
    }

    Interface* get() const { return pointer_; }
    Interface* operator->() const { return pointer_; }
    explicit operator bool() const { return pointer_ != nullptr; }

    /// Where a call stores the reference that it hands over; only for a pointer that is nothing.
    Interface** out() { return &pointer_; }
    Interface* release() { return std::exchange(pointer_, nullptr); }

    /// The same object through another interface, or nothing.
    template <class Other>
    ComPointer<Other> as(const IID& interfaceId) const {
        ComPointer<Other> other;
        void* found = nullptr;
        if (pointer_ && SUCCEEDED(pointer_->QueryInterface(interfaceId, &found)))
            *other.out() = static_cast<Other*>(found);
        return other;
    }

  private:
    Interface* pointer_ = nullptr;
};

}  // namespace tovera
