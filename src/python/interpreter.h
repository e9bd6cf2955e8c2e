#pragma once

#include <Python.h>
#include <cxxabi.h>
#include <memory>
#include <structmember.h>

#include "c_interface/tovera.h"

// Python's objects for C++. The module keeps to Python's stable interface: one file of it serves the Python
// that it was built with and every later one.
namespace tovera::python {

/// Python ends other threads with the interpreter, wherever they ask for its lock. What C++ calls can't be
/// left that way: the thread stops until the process is gone.
[[noreturn]] void waitForTheEnd();

/// Runs what may run Python, for callers that must not be left in the midst.
template <class Body>
auto orWaitForTheEnd(Body body) -> decltype(body()) {
    try {
        return body();
    } catch (abi::__forced_unwind&) {
        waitForTheEnd();
    }
}

struct LetGo {
    void operator()(PyObject* object) const noexcept {
        orWaitForTheEnd([&] { Py_DecRef(object); });
    }
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

/// A whole number of Python's.
inline long wholeOf(PyObject* number) {
    const long whole = PyLong_AsLong(number);
    if (whole == -1 && PyErr_Occurred()) throw Raised();
    return whole;
}

/// The text in small letters, whatever its class says of that.
inline Ref lowered(PyObject* text) {
    return checked(PyObject_CallMethod(reinterpret_cast<PyObject*>(&PyUnicode_Type), "lower", "O", text));
}

/// Runs the body of a function that Python calls.
template <class Body>
PyObject* forPython(Body body) noexcept {
    try {
        return orWaitForTheEnd(body).release();
    } catch (const Raised&) {
        // Python has been told.
    } catch (...) {
        PyErr_NoMemory();
    }
    return nullptr;
}

}  // namespace tovera::python
