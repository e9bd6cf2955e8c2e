#pragma once

#include <concepts>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "frame/bstr.h"
#include "frame/object_ref.h"
#include "frame/string_array.h"
#include "frame/values.h"

namespace tovera {

class Variant;

/// No value yet.
struct Empty {
    friend constexpr bool operator==(Empty, Empty) = default;
};

/// No valid value.
struct Null {
    friend constexpr bool operator==(Null, Null) = default;
};

/// The address of a variable of the caller, which outlives the call that the reference is passed to.
using Reference =
    std::variant<Variant*, Bstr*, I4*, I2*, R8*, R4*, Date*, VariantBool*, UI1*, ObjectRef*, StringArray*>;

template <class T, class Choice>
struct IsAlternativeOf;
template <class T, class... Alternatives>
struct IsAlternativeOf<T, std::variant<Alternatives...>>
    : std::bool_constant<(std::same_as<T, Alternatives> || ...)> {};

/// Tagged value of Automation. The tag is part of the value: a method's description tells it for each case.
class Variant {
  public:
    using Value = std::variant<Empty, Null, I2, I4, R4, R8, Date, Bstr, ObjectRef, ErrorCode, VariantBool,
                               UI1, ExactNumber, StringArray, Reference>;

    Variant() = default;
    template <class T>
    requires IsAlternativeOf<std::remove_cvref_t<T>, Value>::value Variant(T&& value)
        : value_(std::forward<T>(value)) {}
    Variant(const char16_t* text) : value_(Bstr(text)) {}
    Variant(const std::u16string& text) : value_(Bstr(text)) {}
    Variant(std::u16string_view text) : value_(Bstr(text)) {}
    template <std::same_as<bool> T>
    Variant(T truth) : value_(VariantBool(truth)) {}
    /// The integers of C++ that Automation has not: `I4` where that holds the number, else all of its digits.
    template <std::integral T>
    requires(!IsAlternativeOf<T, Value>::value && !std::same_as<T, bool> && sizeof(T) >= sizeof(I4))
        Variant(T number)
        : value_(std::in_range<I4>(number) ? Value(static_cast<I4>(number)) : Value(exactNumberOf(number))) {}
    template <class T>
    requires IsAlternativeOf<std::remove_cvref_t<T>, Value>::value Variant& operator=(T&& value) {
        value_ = std::forward<T>(value);
        return *this;
    }

    /// What stands for an argument that the caller left out.
    static Variant missing() { return missingCode; }

    template <class T>
    bool is() const {
        return std::holds_alternative<T>(value_);
    }
    /// The value when it is of this type, else null.
    template <class T>
    const T* as() const {
        return std::get_if<T>(&value_);
    }
    template <class T>
    T* as() {
        return std::get_if<T>(&value_);
    }
    bool isMissing() const {
        const auto* const error = as<ErrorCode>();
        return error && *error == missingCode;
    }
    bool isNumber() const {
        return is<I2>() || is<I4>() || is<R4>() || is<R8>() || is<UI1>() || is<VariantBool>() || is<Date>() ||
               is<ExactNumber>();
    }

    const Value& value() const { return value_; }

    friend bool operator==(const Variant&, const Variant&) = default;

  private:
    template <std::integral T>
    static constexpr ExactNumber exactNumberOf(T number) {
        const auto bits = static_cast<std::uint64_t>(number);
        const bool isNegative = std::cmp_less(number, 0);
        return {isNegative ? 0 - bits : bits, 0, 0, isNegative};
    }

    static constexpr ErrorCode missingCode{static_cast<I4>(0x80020004U)};

    Value value_;
};

/// A variable of the caller that a member reads and writes: `object.call(u"MesurePrincipale",
/// byReference(angle))`.
template <class T>
Variant byReference(T& variable) {
    return Reference(&variable);
}

/// What the value stands for once references to other variables have been followed. A chain of references
/// that leads back to itself raises error 13.
Variant dereferenced(const Variant& value);

/// The caller's variable at the end of a chain of references to `VARIANT`s, which is value itself when it
/// holds no such reference.
Variant& endOfChain(Variant& value);
inline Variant& endOfReferences(Variant& value) {
    return value.is<Reference>() ? endOfChain(value) : value;
}

}  // namespace tovera
