#pragma once

#include <string>
#include <vector>

#include "python/interpreter.h"

namespace tovera::python {

/// A member as a row of its class; the rows of a property stand one after the other.
struct Member {
    const tovera_member* row = nullptr;
    bool mayTakeLong = false;  ///< other threads of Python run meanwhile
};

/// The rows of a property; null where there is none.
struct Property {
    const Member* read = nullptr;
    const Member* write = nullptr;
};

/// A class of the component as a type of Python. Attributes are the interpreter's own, so that calls, `help`
/// and signatures cost and show what those of any other type do.
struct ComponentClass {
    const tovera_class* row = nullptr;
    bool mayTakeLong = false;
    std::vector<Member> members;
    std::vector<Property> properties;
    const tovera_member* objectProperty = nullptr;  ///< the one that holds an object of Python, if any
    std::vector<std::string> documents;
    std::vector<PyMethodDef> methods;
    std::vector<PyGetSetDef> accessors;
    Ref names;  ///< a dictionary: the lower-case name of a member, the name
    PyTypeObject* type = nullptr;
};

/// Makes the types of all classes and adds them to the module. Throws `Raised`.
void addClasses(PyObject* module);

/// The class that a type is, or derives from.
const ComponentClass& classOf(PyTypeObject* type);
/// The class with this ProgID, or class name alone, in any case; null where there is none.
const ComponentClass* classNamed(const char* name);

}  // namespace tovera::python
