#include "python/taken_value.h"

#include <algorithm>
#include <array>

#include "python/errors.h"
#include "python/exact_numbers.h"
#include "python/host_handle.h"
#include "python/known.h"
#include "python/moments.h"

namespace tovera::python {
namespace {

/// Most texts are French ones, which Python makes fastest of single bytes.
Ref textOf(const tovera_value& value) {
    const auto* const units = value.as.text.characters;
    const auto length = units ? value.as.text.length : 0;
    std::array<char, 256> narrow;
    if (length <= narrow.size()) {
        char16_t all = 0;
        for (std::size_t i = 0; i < length; ++i) {
            all = static_cast<char16_t>(all | units[i]);
            narrow[i] = static_cast<char>(units[i]);
        }
        if (all < 0x80)
            return checked(PyUnicode_FromStringAndSize(narrow.data(), static_cast<Py_ssize_t>(length)));
        if (all < 0x100)
            return checked(PyUnicode_DecodeLatin1(narrow.data(), static_cast<Py_ssize_t>(length), nullptr));
    }
    int lowByteFirst = -1;
    return checked(PyUnicode_DecodeUTF16(reinterpret_cast<const char*>(units),
                                         static_cast<Py_ssize_t>(length * sizeof(char16_t)), "surrogatepass",
                                         &lowByteFirst));
}

Ref none() {
    return another(Py_None);
}

/// The text of an element; None for one that has not been given any.
Ref elementOf(const tovera_array* array, std::int32_t index) {
    Cleared text;
    if (tovera_array_get(array, index, 0, &text) != 0) raise(number::outOfMemory);
    return text.as.text.characters ? textOf(text) : none();
}

Ref arrayOf(const tovera_array* array) {
    auto texts = checked(PyList_New(0));
    std::int32_t lower = 1;
    std::int32_t upper = 0;
    if (tovera_array_bounds(array, &lower, &upper) == 0) {
        for (auto i = lower; i <= upper; ++i)
            if (PyList_Append(texts.get(), elementOf(array, i).get()) != 0) throw Raised();
    }
    return checked(PyObject_CallFunction(known().array.get(), "Oi", texts.get(), lower));
}

Ref objectOf(tovera_object* object) {
    if (!object) return none();
    if (auto* const ours = hostData(object)) return another(ours);
    // Objects come in through this module, and as what it has given.
    raise(number::typeMismatch);
}

}  // namespace

Ref takenValue(const tovera_value& value) {
    switch (value.type) {
        case TOVERA_I2:
            return checked(PyLong_FromLong(value.as.i2));
        case TOVERA_I4:
            return checked(PyLong_FromLong(value.as.i4));
        case TOVERA_UI1:
            return checked(PyLong_FromLong(value.as.ui1));
        case TOVERA_R4:
            return checked(PyFloat_FromDouble(static_cast<double>(value.as.r4)));
        case TOVERA_R8:
            return checked(PyFloat_FromDouble(value.as.r8));
        case TOVERA_DATE:
            return momentOf(value.as.r8);
        case TOVERA_TEXT:
            return textOf(value);
        case TOVERA_UTF8:
            return checked(PyUnicode_DecodeUTF8(value.as.utf8.bytes,
                                                static_cast<Py_ssize_t>(value.as.utf8.length), "replace"));
        case TOVERA_BOOL:
            return checked(PyBool_FromLong(value.as.i2));
        case TOVERA_EMPTY:
            return none();
        case TOVERA_NULL:
            return another(known().null.get());
        case TOVERA_MISSING:
            return another(known().missing.get());
        case TOVERA_ERROR:
            return makeError(value.as.i4);
        case TOVERA_OBJECT:
            return objectOf(value.as.object);
        case TOVERA_EXACT:
            return exactNumberOf(value);
        case TOVERA_ARRAY:
            return arrayOf(value.as.array);
        default:
            raise(number::typeMismatch);
    }
}

}  // namespace tovera::python
