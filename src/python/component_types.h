#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// Makes a type of Python for each class and adds it to the module. Attributes are the interpreter's own, so
/// that calls, `help` and signatures cost and show what those of any other type do. Throws `Raised`.
void addTypes(PyObject* module);

}  // namespace tovera::python
