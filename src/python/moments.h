#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// A `datetime`, `date` (midnight) or `time` (of the day 0) as days from 30 December 1899. One with a time
/// zone raises error 13.
double daysOf(PyObject* moment);
/// A `datetime`, to the microsecond. Raises error 6 for a day outside of Python's years.
Ref momentOf(double days);

}  // namespace tovera::python
