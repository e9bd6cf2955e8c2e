#pragma once

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

/// A class of the component with its type in Python.
struct ComponentClass {
    const tovera_class* row = nullptr;
    bool mayTakeLong = false;  ///< the making of an object
    std::vector<Member> members;
    std::vector<Property> properties;
    const tovera_member* objectProperty = nullptr;  ///< the one that may hold an object of Python
    Ref names;                                      ///< the names of the members, a set
    Ref namesByLower;                               ///< a dictionary: the lower-case name, the name
    PyTypeObject* type = nullptr;
};

/// All classes, read from the table of the component by `readClasses`, which throws `Raised`.
std::vector<ComponentClass>& componentClasses();
void readClasses();

/// The class that a type is, or derives from.
const ComponentClass& classOf(PyTypeObject* type);
/// The class with this ProgID, or class name alone, in any case; null where there is none.
const ComponentClass* classNamed(const char* name);

}  // namespace tovera::python
