#pragma once

#include <cstddef>
#include <utility>

#include "python/class_rows.h"

namespace tovera::python {

/// An object of the component as Python holds it.
struct ComponentObject {
    PyObject ob_base;
    tovera_object* handle;
    const ComponentClass* ownClass;
    PyObject* held;  ///< what the object's own object property holds; the reference is the component's
    unsigned calls;  ///< under way; what is held is not known meanwhile
    PyObject* weakReferences;
};

/// What a call of one of its methods runs, for the place of the method's row.
PyObject* callMethod(PyObject* self, std::size_t place, PyObject* const* arguments, Py_ssize_t count,
                     PyObject* names) noexcept;
/// The accessors of a property, which is the closure.
PyObject* readProperty(PyObject* self, void* property) noexcept;
int writeProperty(PyObject* self, PyObject* value, void* property) noexcept;

/// The life of an object, and its attributes in any case of their letters: the slots of its type.
PyObject* newObject(PyTypeObject* type, PyObject* arguments, PyObject* names) noexcept;
void endObject(PyObject* self) noexcept;
int traverseObject(PyObject* self, visitproc visit, void* arg) noexcept;
int clearObject(PyObject* self) noexcept;
PyObject* attributeOfObject(PyObject* self, PyObject* name) noexcept;
int setAttributeOfObject(PyObject* self, PyObject* name, PyObject* value) noexcept;

}  // namespace tovera::python
