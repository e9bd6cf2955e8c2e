#pragma once

#include <list>

#include "platform/windows/incoming_values.h"
#include "platform/windows/variants.h"

namespace tovera {

/// The variables of the caller that the arguments of one call refer to. The member works on copies; what it
/// has changed goes back when it is done, all of it or, when a value can't take its variable's type, nothing.
class CallerVariables {
  public:
    /// An argument in the frame's form: a value, or a reference to the copy of the variable.
    Variant argument(const VARIANT& argument) {
        return argument.vt & VT_BYREF ? variable(argument, longestChain) : valueOf(argument);
    }

    void writeBack() {
        if (!variables_.empty()) writeBackChanged();
    }

  private:
    struct Variable {
        void* address;
        VARTYPE tag;
        Variant value;
        Variant before;
        SystemVariant changed;
    };

    Variant variable(const VARIANT& reference, int chain);
    void writeBackChanged();

    std::list<Variable> variables_;
};

}  // namespace tovera
