#include "python/host_handle.h"

#include "python/errors.h"

namespace tovera::python {
namespace {

constinit const tovera_object_functions* hostFunctions = nullptr;

}  // namespace

tovera_object* hostObject(PyObject* object) {
    auto* const made = tovera_object_new(hostFunctions, object);
    if (!made) raise(number::outOfMemory);
    Py_IncRef(object);
    return made;
}

PyObject* hostData(const tovera_object* object) {
    return static_cast<PyObject*>(tovera_object_data(object, hostFunctions));
}

void setHostFunctions(const tovera_object_functions& functions) {
    hostFunctions = &functions;
}

}  // namespace tovera::python
