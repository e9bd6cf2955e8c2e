#include "python/errors.h"

#include <array>
#include <limits>

#include "python/known.h"

namespace tovera::python {
namespace {

struct NumberOfException {
    PyObject* const* type;
    std::int32_t number;
};

/// The first row that fits counts.
const std::array numbersOfExceptions{
    NumberOfException{&PyExc_KeyboardInterrupt, number::interrupted},
    NumberOfException{&PyExc_AttributeError, number::noSuchMember},
    NumberOfException{&PyExc_TypeError, number::typeMismatch},
    NumberOfException{&PyExc_OverflowError, number::overflow},
    NumberOfException{&PyExc_ZeroDivisionError, 11},
    NumberOfException{&PyExc_IndexError, 9},
    NumberOfException{&PyExc_ValueError, number::invalidCall},
    NumberOfException{&PyExc_FileNotFoundError, 53},
    NumberOfException{&PyExc_PermissionError, 70},
    NumberOfException{&PyExc_MemoryError, number::outOfMemory},
};

std::int32_t numberOf(PyObject* exception) {
    if (isOneOf(exception, known().error)) {
        const Ref number(PyObject_GetAttrString(exception, "number"));
        const auto value = number ? PyLong_AsLong(number.get()) : 0;
        const bool isOne = !PyErr_Occurred() && value != 0;
        PyErr_Clear();
        // 0 would be success. Many are written without sign, as 0x80004005.
        if (isOne && value >= std::numeric_limits<std::int32_t>::min() &&
            value <= std::numeric_limits<std::uint32_t>::max())
            return static_cast<std::int32_t>(value);
    }
    for (const auto& row : numbersOfExceptions)
        if (PyErr_GivenExceptionMatches(exception, *row.type)) return row.number;
    return number::objectFailed;
}

}  // namespace

std::string utf8Of(PyObject* text) {
    const Ref bytes(PyUnicode_AsEncodedString(text, "utf-8", "replace"));
    char* start = nullptr;
    Py_ssize_t length = 0;
    if (!bytes || PyBytes_AsStringAndSize(bytes.get(), &start, &length) != 0) {
        PyErr_Clear();
        return {};
    }
    return {start, static_cast<std::size_t>(length)};
}

Ref makeError(std::int32_t number, const char* description, const char* source) {
    if (!description) description = tovera_description_of(number);
    const auto& type = number == number::noSuchMember ? known().memberError : known().error;
    return checked(PyObject_CallFunction(type.get(), "iss", number, description ? description : "",
                                         source ? source : "tovera"));
}

void raise(std::int32_t number, const char* description, const char* source) {
    putRaised(makeError(number, description, source));
    throw Raised();
}

void raiseAbout(std::int32_t number, PyObject* name) {
    const auto* const description = tovera_description_of(number);
    raise(number, ((description ? description : "Argument inconnu") + (" : " + utf8Of(name))).c_str());
}

Told toldOf(PyObject* exception) {
    Told told{numberOf(exception), {}};
    const Ref text(isOneOf(exception, known().error) ? PyObject_GetAttrString(exception, "description")
                                                     : PyObject_Str(exception));
    PyErr_Clear();
    if (text && PyUnicode_Check(text.get())) told.description = utf8Of(text.get());
    return told;
}

Ref takeRaised() {
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    PyErr_NormalizeException(&type, &value, &traceback);
    const Ref ownType(type);
    const Ref ownTraceback(traceback);
    if (traceback) PyException_SetTraceback(value, traceback);
    return Ref(value);
}

void putRaised(Ref exception) {
    PyErr_SetObject(reinterpret_cast<PyObject*>(Py_TYPE(exception.get())), exception.get());
}

}  // namespace tovera::python
