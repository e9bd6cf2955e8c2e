#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// A value of the component for Python. Throws `Raised` for one that Python has not.
Ref takenValue(const tovera_value& value);

/// A value that is cleared at the end.
struct Cleared : tovera_value {
    Cleared() : tovera_value(tovera_of_type(TOVERA_EMPTY)) {}
    Cleared(const Cleared&) = delete;
    Cleared& operator=(const Cleared&) = delete;
    ~Cleared() {
        if (owned) tovera_clear(this);
    }
};

}  // namespace tovera::python
