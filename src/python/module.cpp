#include <array>
#include <utility>

#include "python/class_rows.h"
#include "python/component_types.h"
#include "python/errors.h"
#include "python/host_object.h"
#include "python/host_services.h"
#include "python/known.h"

namespace tovera::python {
namespace {

PyObject* dispatch(PyObject*, PyObject* name) {
    return forPython([&] {
        if (!PyUnicode_Check(name)) raise(number::typeMismatch);
        const auto written = utf8Of(name);
        const auto* const found = classNamed(written.c_str());
        if (!found || written.find('\0') != written.npos) raiseAbout(number::cannotCreateObject, name);
        return checked(PyObject_CallNoArgs(reinterpret_cast<PyObject*>(found->type)));
    });
}

/// A function of the user's in the place of the system's; None brings that back. Gives what was set before.
template <Ref Known::*Place>
PyObject* set(PyObject*, PyObject* function) {
    return forPython([&] {
        if (function != Py_None && !PyCallable_Check(function)) raise(number::typeMismatch);
        auto before = std::exchange(knownObjects->*Place, function == Py_None ? Ref() : another(function));
        return before ? std::move(before) : another(Py_None);
    });
}

std::array functions{
    PyMethodDef{"Dispatch", dispatch, METH_O,
                "Dispatch($module, name, /)\n--\n\n"
                "A new object of the class with this ProgID, or class name alone, in any case."},
    PyMethodDef{"set_message_box", set<&Known::messageBox>, METH_O,
                "set_message_box($module, function, /)\n--\n\n"
                "Has message boxes shown by function(text, title, flags); None leaves them to the system.\n"
                "Flags are 0, 16 (stop) or 64 (information). Gives what was set before."},
    PyMethodDef{"set_pump", set<&Known::pump>, METH_O,
                "set_pump($module, function, /)\n--\n\n"
                "Has function() called every 20 ms while a member waits, so that windows stay alive.\n"
                "Gives what was set before."},
    PyMethodDef{
        "set_create_object", set<&Known::createObject>, METH_O,
        "set_create_object($module, function, /)\n--\n\n"
        "Has objects of other components made by function(progid), which gives None for those that it\n"
        "has not. Gives what was set before."},
    PyMethodDef{},
};

PyModuleDef definition{PyModuleDef_HEAD_INIT,
                       "tovera._tovera",
                       "The classes of the component.",
                       -1,
                       functions.data(),
                       nullptr,
                       nullptr,
                       nullptr,
                       nullptr};

Ref makeModule() {
    auto module = checked(PyModule_Create(&definition));
    findKnown();
    useHostObjects();
    if (!hostOfPython()) raise(number::outOfMemory);
    readClasses();
    addTypes(module.get());
    if (PyModule_AddStringConstant(module.get(), "__version__", tovera_version()) != 0) throw Raised();
    return module;
}

}  // namespace
}  // namespace tovera::python

PyMODINIT_FUNC PyInit__tovera() {  // NOLINT(bugprone-reserved-identifier): the name that Python looks for
    return tovera::python::forPython(tovera::python::makeModule);
}
