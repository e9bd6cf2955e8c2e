#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// A whole number of Python that `I4` doesn't hold, or a `Decimal`, with all of its digits. Raises error 6
/// for what 96 bits or 28 decimals don't hold, and for what is no number.
tovera_value exactWhole(PyObject* whole);
tovera_value exactDecimal(PyObject* decimal);
/// An `int` for a number without decimals, else a `Decimal`.
Ref exactNumberOf(const tovera_value& value);

}  // namespace tovera::python
