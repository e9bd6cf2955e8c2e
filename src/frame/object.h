#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string_view>

#include "frame/error.h"
#include "frame/object_ref.h"
#include "frame/variant.h"

namespace tovera {

/// Ways of calling a member; a call may allow several at once, as a late-bound read does.
enum class CallKind : unsigned { Method = 1, Read = 2, Write = 4, AssignReference = 8 };

constexpr CallKind operator|(CallKind a, CallKind b) {
    return static_cast<CallKind>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

constexpr bool allows(CallKind allowed, CallKind kind) {
    return (static_cast<unsigned>(allowed) & static_cast<unsigned>(kind)) != 0;
}

/// Identifier of an interface.
struct InterfaceId {
    std::uint32_t data1 = 0;
    std::uint16_t data2 = 0;
    std::uint16_t data3 = 0;
    std::array<std::uint8_t, 8> data4{};
    friend constexpr bool operator==(const InterfaceId&, const InterfaceId&) = default;
};

/// Walks a collection once, from its first element.
class Enumerator {
  public:
    virtual ~Enumerator() = default;
    /// The next element, or nothing behind the last one.
    virtual std::optional<Variant> next() = 0;
};

using MemberId = I4;

/// What an object stands for where a plain value is needed, as the text of a control or the value of a cell.
inline constexpr MemberId defaultMember = 0;

/// An object whose members are reached by name at run time: the portable form of `IDispatch`, which hosts
/// implement for the objects that they hand in, forms above all.
class Object {
  public:
    Object() = default;
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;

    virtual void addRef() noexcept = 0;
    virtual void release() noexcept = 0;

    /// The identifier of a member, its name matched without regard to case.
    virtual std::optional<MemberId> memberNamed(std::u16string_view name) = 0;

    /// Calls a member. Arguments stand in their order, a written value last; what the member changes in them
    /// is there afterwards, in the variable behind a reference as well. The result is valid on every path,
    /// and the record is filled when the return code tells a failure.
    virtual ReturnCode invoke(MemberId member, CallKind kind, std::span<Variant> arguments, Variant& result,
                              ErrorRecord& failure) noexcept = 0;

    /// The standard enumeration of a collection; raises error 451 on an object that is none.
    virtual std::unique_ptr<Enumerator> elements();

    /// The object through another of its interfaces; raises error 430 when it hasn't got it.
    virtual ObjectRef query(const InterfaceId& interfaceId);

  protected:
    ~Object() = default;
};

/// The counting part of an object. It is created with one reference and ends with its last one.
template <class Base = Object>
class Counted : public Base {
  public:
    using Base::Base;
    void addRef() noexcept final { ++references_; }
    void release() noexcept final {
        if (--references_ == 0) std::unique_ptr<Counted>{this};
    }
    unsigned references() const noexcept { return references_; }

  protected:
    Counted() = default;
    virtual ~Counted() = default;
    friend struct std::default_delete<Counted>;

  private:
    unsigned references_ = 1;
};

/// Makes a counted object and the first reference to it.
template <class T, class... Arguments>
ObjectRef makeObject(Arguments&&... arguments) {
    return ObjectRef::adopt(std::make_unique<T>(std::forward<Arguments>(arguments)...).release());
}

/// The late-bound call: each looks the member up anew. On nothing it raises error 91, on a member that the
/// object hasn't got 438, and a failure inside the member is raised as that failure.
Variant invokeMember(const ObjectRef& object, std::u16string_view name, CallKind kind,
                     std::span<Variant> arguments);

/// Calls a member as a method. Texts that are variables go by reference: pass `Reference(&text)`.
template <class... Arguments>
Variant callMember(const ObjectRef& object, std::u16string_view name, Arguments&&... arguments) {
    std::array<Variant, sizeof...(Arguments)> values{Variant(std::forward<Arguments>(arguments))...};
    return invokeMember(object, name, CallKind::Method | CallKind::Read, values);
}

Variant readMember(const ObjectRef& object, std::u16string_view name);
void writeMember(const ObjectRef& object, std::u16string_view name, Variant value);

template <class... Arguments>
Variant ObjectRef::call(std::u16string_view name, Arguments&&... arguments) const {
    return callMember(*this, name, std::forward<Arguments>(arguments)...);
}

inline Variant ObjectRef::get(std::u16string_view name) const {
    return readMember(*this, name);
}

template <class V>
void ObjectRef::set(std::u16string_view name, V&& value) const {
    writeMember(*this, name, Variant(std::forward<V>(value)));
}

}  // namespace tovera
