#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// An object of Python for the component, with a reference of its own to it. Throws `Raised` without memory.
tovera_object* hostObject(PyObject* object);

/// The object of Python behind one that `hostObject` has made; null for any other.
PyObject* hostData(const tovera_object* object);

/// What such objects can do, which is set once, before the first of them.
void setHostFunctions(const tovera_object_functions& functions);

}  // namespace tovera::python
