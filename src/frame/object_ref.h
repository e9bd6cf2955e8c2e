#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

namespace tovera {

class Object;
class Variant;

/// Counted reference to a late-bound object; may be nothing.
class ObjectRef {
  public:
    ObjectRef() = default;
    ObjectRef(std::nullptr_t) {}
    /// Takes a reference of its own.
    explicit ObjectRef(Object* object) : object_(object) { retain(); }
    ObjectRef(const ObjectRef& other) : object_(other.object_) { retain(); }
    ObjectRef(ObjectRef&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    ObjectRef& operator=(ObjectRef other) noexcept {
        std::swap(object_, other.object_);
        return *this;
    }
    ~ObjectRef() {
        if (object_) release();
    }

    /// Takes over a reference that the caller holds.
    static ObjectRef adopt(Object* object) {
        ObjectRef reference;
        reference.object_ = object;
        return reference;
    }

    /// Calls a member, or reads a property, by its name; see `invokeMember` for the errors that it raises. A
    /// variable goes by reference as `byReference(variable)`. These are defined in `frame/object.h`.
    template <class... Arguments>
    Variant call(std::u16string_view name, Arguments&&... arguments) const;
    /// Reads a property, and writes one.
    Variant get(std::u16string_view name) const;
    template <class V>
    void set(std::u16string_view name, V&& value) const;

    explicit operator bool() const { return object_ != nullptr; }
    Object* get() const { return object_; }
    Object& operator*() const { return *object_; }
    Object* operator->() const { return object_; }
    friend bool operator==(const ObjectRef&, const ObjectRef&) = default;

  private:
    void retain() const noexcept;
    void release() const noexcept;

    Object* object_ = nullptr;
};

}  // namespace tovera
