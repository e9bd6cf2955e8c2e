#pragma once

#include "frame/conversions.h"
#include "frame/object.h"

// How a member's parameters are declared, and how the arguments of a call by name are bound to them.
//
//   T          by value: the member gets its own copy
//   T&         by reference: what the member stores stays in the caller's variable
//   const T&   by reference, and only read
//   Optional<T>  by reference, and may be left out: it then reads as empty or False
namespace tovera {

template <class T>
class Optional {
  public:
    Optional() = default;
    Optional(T& variable) : variable_(&variable) {}

    bool isGiven() const { return variable_ != nullptr; }
    T& operator*() { return variable_ ? *variable_ : own_; }
    T* operator->() { return &**this; }

  private:
    T* variable_ = nullptr;
    T own_{};
};

/// Types of the published interface.
enum class Type : std::uint8_t {
    None,
    Bstr,
    Variant,
    VariantBool,
    Date,
    I2,
    I4,
    R4,
    R8,
    UI1,
    StringArray,
    Object
};
enum class Mode : std::uint8_t { ByValue, ByReference, Optional };

// clang-format off
template <class T> inline constexpr Type typeOf = Type::None;
template <> inline constexpr Type typeOf<Bstr> = Type::Bstr;
template <> inline constexpr Type typeOf<Variant> = Type::Variant;
template <> inline constexpr Type typeOf<VariantBool> = Type::VariantBool;
template <> inline constexpr Type typeOf<Date> = Type::Date;
template <> inline constexpr Type typeOf<I2> = Type::I2;
template <> inline constexpr Type typeOf<I4> = Type::I4;
template <> inline constexpr Type typeOf<R4> = Type::R4;
template <> inline constexpr Type typeOf<R8> = Type::R8;
template <> inline constexpr Type typeOf<UI1> = Type::UI1;
template <> inline constexpr Type typeOf<StringArray> = Type::StringArray;
template <> inline constexpr Type typeOf<ObjectRef> = Type::Object;
// clang-format on

/// The value type and mode of a declared parameter.
template <class T>
struct ParameterTraits {
    using Value = T;
    static constexpr Mode mode = Mode::ByValue;
};
template <class T>
struct ParameterTraits<T&> {
    using Value = std::remove_const_t<T>;
    static constexpr Mode mode = Mode::ByReference;
};
template <class T>
struct ParameterTraits<Optional<T>> {
    using Value = T;
    static constexpr Mode mode = Mode::Optional;
};

/// A caller's variable seen as a variable of another type: the variable itself when it is of that type or
/// refers to one, else a converted copy.
template <class T>
class Bound {
  public:
    Bound(Variant& argument, const Conversions& convert) : argument_(endOfReferences(argument)) {
        if constexpr (std::is_same_v<T, Variant>) {
            if (!argument_.template is<Reference>()) {
                variable_ = &argument_;
                return;
            }
            copy_ = dereferenced(argument_);
        } else {
            variable_ = argument_.template as<T>();
            if (const auto* reference = argument_.template as<Reference>()) {
                if (auto* const* same = std::get_if<T*>(reference)) variable_ = *same;
            }
            if (!variable_) copy_ = convert.to<T>(argument_);
        }
    }

    T& variable() { return variable_ ? *variable_ : copy_; }

  protected:
    Variant& argument_;
    T* variable_ = nullptr;
    T copy_{};
};

/// The same, where the converted copy goes back to the variable when the member has changed it. A variable
/// that holds an object keeps it.
template <class T>
class WritableBound : public Bound<T> {
  public:
    WritableBound(Variant& argument, const Conversions& convert)
        : Bound<T>(argument, convert), before_(this->copy_) {}

    void writeBack(const Conversions& convert) {
        if (this->variable_ || this->copy_ == before_) return;
        if (dereferenced(this->argument_).template is<ObjectRef>()) return;
        convert.store(Reference(&this->argument_), Variant(std::move(this->copy_)));
    }

  private:
    T before_;
};

/// A `VARIANT` that refers to a variable of another type goes on with its reference: what the member stores
/// through it (`Conversions::store`) takes that type at once, and is what the member reads next. A variable
/// that holds an object keeps it here as well.
template <>
class WritableBound<Variant> {
  public:
    WritableBound(Variant& argument, const Conversions&) : variable_(&endOfReferences(argument)) {
        const auto* const reference = variable_->as<Reference>();
        if (!reference) return;
        if (std::holds_alternative<ObjectRef*>(*reference)) {
            copy_ = dereferenced(*variable_);
            variable_ = &copy_;
        } else {
            through_ = *reference;
        }
    }

    Variant& variable() { return *variable_; }

    /// A member may also have put a value in the place of the reference.
    void writeBack(const Conversions& convert) {
        if (!through_ || *variable_ == Variant(*through_)) return;
        const Variant assigned = std::exchange(*variable_, Variant(*through_));
        convert.store(*through_, assigned);
    }

  private:
    Variant* variable_;
    Variant copy_;
    std::optional<Reference> through_;
};

/// Whether the caller has left an argument out, or passes on a variable that stands for one left out.
inline bool isLeftOut(Variant* argument) {
    return !argument || endOfReferences(*argument).isMissing();
}

inline Variant& required(Variant* argument) {
    if (isLeftOut(argument)) raise(ErrorNumber::ArgumentNotOptional);
    return *argument;
}

/// The binding of one argument to a declared parameter; a null address stands for an argument left out.
template <class Parameter>
class Argument {
  public:
    Argument(Variant* argument, const Conversions& convert) : value_(valueOf(required(argument), convert)) {}
    Parameter pass() { return std::move(value_); }
    void writeBack(const Conversions&) {}

  private:
    static Parameter valueOf(const Variant& argument, const Conversions& convert) {
        if constexpr (std::is_same_v<Parameter, Variant>) {
            return dereferenced(argument);
        } else {
            return convert.to<Parameter>(argument);
        }
    }
    Parameter value_;
};

template <class T>
class Argument<const T&> {
  public:
    Argument(Variant* argument, const Conversions& convert) : bound_(required(argument), convert) {}
    const T& pass() { return bound_.variable(); }
    void writeBack(const Conversions&) {}

  private:
    Bound<T> bound_;
};

template <class T>
class Argument<T&> {
  public:
    Argument(Variant* argument, const Conversions& convert) : bound_(required(argument), convert) {}
    T& pass() { return bound_.variable(); }
    void writeBack(const Conversions& convert) { bound_.writeBack(convert); }

  private:
    WritableBound<T> bound_;
};

template <class T>
class Argument<Optional<T>> {
  public:
    Argument(Variant* argument, const Conversions& convert) {
        if (!isLeftOut(argument)) bound_.emplace(*argument, convert);
    }
    Optional<T> pass() { return bound_ ? Optional<T>(bound_->variable()) : Optional<T>(); }
    void writeBack(const Conversions& convert) {
        if (bound_) bound_->writeBack(convert);
    }

  private:
    std::optional<WritableBound<T>> bound_;
};

}  // namespace tovera
