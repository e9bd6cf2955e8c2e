#pragma once

#include <optional>

#include "python/interpreter.h"

namespace tovera::python {

/// The identifier of an object's attribute, its name matched without regard to case; nothing where it has
/// none. No property of the object is read for it, unless the object makes its attributes up. Throws
/// `Raised`.
std::optional<std::int32_t> attributeNamed(PyObject* object, const char* name);

/// The name behind an identifier, borrowed. The default member, 0, is the attribute `Value`; null where the
/// object hasn't got it.
PyObject* attributeName(PyObject* object, std::int32_t member);

}  // namespace tovera::python
