#pragma once

#include <vector>

#include "python/interpreter.h"

namespace tovera::python {

/// What given values refer to, for as long as they are used.
using Keeper = std::vector<Ref>;

/// A value of Python for the component. It may refer to the object or to the keeper, and may own an array or
/// an object: it is to be cleared. The declared type (an enum tovera_type) says where an object is wanted.
/// Throws `Raised` for what the component has no value for.
tovera_value givenValue(PyObject* value, unsigned declared, Keeper& keeper);

/// The variable behind a `tovera.ByRef`, of the type that was asked for. `isTyped` tells whether it keeps it.
tovera_value givenVariable(PyObject* byRef, unsigned declared, bool& isTyped, Keeper& keeper);

/// The result of a function of Python, which owns all that it refers to.
tovera_value ownedValue(PyObject* result);

}  // namespace tovera::python
