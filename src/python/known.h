#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// The objects of Python that the module works with. They live as long as the process.
struct Known {
    Ref error;        ///< tovera.Error
    Ref memberError;  ///< tovera.MemberError, which is an AttributeError too
    Ref byRef;        ///< tovera.ByRef
    Ref array;        ///< tovera.Array
    Ref null;         ///< tovera.Null
    Ref nothing;      ///< tovera.Nothing
    Ref missing;      ///< tovera.Missing
    Ref datetime;
    Ref date;
    Ref time;
    Ref decimal;
    // Names of attributes.
    Ref value;
    Ref type;
    Ref lower;
    // What the user has set, or null.
    Ref messageBox;
    Ref pump;
    Ref createObject;
};

/// Null until they have been found.
extern constinit Known* knownObjects;
inline const Known& known() {
    return *knownObjects;
}
/// Finds all of them, at the start of the module. Throws `Raised`.
void findKnown();

inline bool isOneOf(PyObject* object, const Ref& type) {
    auto* const wanted = reinterpret_cast<PyTypeObject*>(type.get());
    return Py_TYPE(object) == wanted || PyType_IsSubtype(Py_TYPE(object), wanted) != 0;
}

}  // namespace tovera::python
