#pragma once

#include <Python.h>
#include <cxxabi.h>
#include <memory>
#include <structmember.h>

#include "c_interface/tovera.h"

// Python's objects for C++. The module keeps to Python's stable interface: one file of it serves the Python
// that it was built with and every later one.
namespace tovera::python {

struct LetGo {
    void operator()(PyObject* object) const noexcept { Py_DecRef(object); }
};
/// A reference of its own, or null.
using Ref = std::unique_ptr<PyObject, LetGo>;

/// Thrown where Python has been told of an exception; what Python calls gives null then.
struct Raised {};

/// Takes over what a function of Python has made.
inline Ref checked(PyObject* made) {
    if (!made) throw Raised();
    return Ref(made);
}

inline Ref another(PyObject* object) {
    Py_IncRef(object);
    return Ref(object);
}

/// Python ends other threads with the interpreter, wherever they ask for its lock. What C++ calls can't be
/// left that way: the thread stops until the process is gone.
[[noreturn]] void waitForTheEnd();

/// Runs the body of a function that Python calls.
template <class Body>
PyObject* forPython(Body body) noexcept {
    try {
        return body().release();
    } catch (const Raised&) {
        // Python has been told.
    } catch (abi::__forced_unwind&) {
        waitForTheEnd();
    } catch (...) {
        PyErr_NoMemory();
    }
    return nullptr;
}

}  // namespace tovera::python
