#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// An object of Python for the component, with a reference of its own to it: its attributes are members,
/// their names matched without regard to case. Throws `Raised` without memory.
tovera_object* hostObject(PyObject* object);

/// The object of Python behind one that `hostObject` has made; null for any other.
PyObject* hostData(const tovera_object* object);

}  // namespace tovera::python
