#pragma once

#include <list>

#include "c_interface/tovera.h"
#include "frame/variant.h"

namespace tovera::c {

/// The variables that one call gets by reference: what they hold is copied in before it, and what it has
/// changed goes back afterwards. One variable that stands in two places stays one.
class Variables {
  public:
    /// The argument for a value: a plain one, or a reference to what the caller's variable holds.
    Variant argument(const tovera_value& value);

    /// Gives the caller's variables what the call has assigned. A failure leaves none half-written.
    void giveBack(unsigned flags);

  private:
    using Held = std::variant<Variant, Bstr, I4, I2, R8, R4, Date, VariantBool, UI1, ObjectRef, StringArray>;
    /// What a variable that keeps its type holds, as a variable of that type.
    static Held typed(Variant value);

    struct Variable {
        tovera_value* place;
        Held value;
    };

    Reference referenceTo(tovera_value& variable, bool isTyped);

    std::list<Variable> variables_;
};

}  // namespace tovera::c
