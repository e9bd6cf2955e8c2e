#pragma once

#include <memory>
#include <utility>

#include "c_interface/tovera.h"

// What the C interface hands out, given back by itself.
namespace tovera::office {

/// An object of the component or of the office; counted.
class Handle {
  public:
    Handle() = default;
    /// Takes a reference over.
    explicit Handle(tovera_object* object) : object_(object) {}
    Handle(Handle&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    Handle& operator=(Handle&& other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { tovera_release(object_); }

    static Handle shared(tovera_object* object) {
        if (object) tovera_retain(object);
        return Handle(object);
    }
    tovera_object* get() const { return object_; }
    tovera_object* release() { return std::exchange(object_, nullptr); }
    explicit operator bool() const { return object_ != nullptr; }

  private:
    tovera_object* object_ = nullptr;
};

/// A value that is cleared at the end.
struct Value : tovera_value {
    Value() : tovera_value(tovera_of_type(TOVERA_EMPTY)) {}
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { tovera_clear(this); }
};

struct Failure : tovera_failure {
    Failure() : tovera_failure{} {}
    Failure(const Failure&) = delete;
    Failure& operator=(const Failure&) = delete;
    ~Failure() { tovera_failure_clear(this); }
};

struct FreeArray {
    void operator()(tovera_array* array) const { tovera_array_free(array); }
};
using Array = std::unique_ptr<tovera_array, FreeArray>;

}  // namespace tovera::office
