#pragma once

#include "frame/services.h"
#include "frame/variant.h"

namespace tovera {

/// Converts values to the types that members declare. What can't be converted raises error 13, a number out
/// of range 6, Null 94. Text is read and written by the user's regional settings. References are followed,
/// and an object stands for the value of its default member.
class Conversions {
  public:
    explicit Conversions(Services& services) : services_(&services) {}

    template <class T>
    T to(const Variant& value) const;

    /// Stores a value in the variable that a reference leads to, in the type of that variable.
    void store(const Reference& target, const Variant& value) const;

  private:
    R8 number(const Variant& value) const;
    template <class Integer>
    Integer integer(const Variant& value) const;
    VariantBool truth(const Variant& value) const;
    Date moment(const Variant& value) const;
    Bstr text(const Variant& value) const;

    Services* services_;
};

}  // namespace tovera
