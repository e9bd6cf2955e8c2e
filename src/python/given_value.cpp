#include "python/given_value.h"

#include <cmath>
#include <limits>

#include "python/errors.h"
#include "python/exact_numbers.h"
#include "python/host_handle.h"
#include "python/known.h"
#include "python/moments.h"

namespace tovera::python {
namespace {

/// None: nothing for an object, the null text for a text, else empty.
tovera_value noValue(unsigned declared) {
    if (declared == TOVERA_OBJECT) return tovera_of_object(nullptr);
    return declared == TOVERA_TEXT ? tovera_of_text(nullptr, 0) : tovera_of_type(TOVERA_EMPTY);
}

tovera_value wholeNumber(PyObject* whole) {
    int overflow = 0;
    const long number = PyLong_AsLongAndOverflow(whole, &overflow);
    if (overflow == 0 && number == static_cast<std::int32_t>(number))
        return tovera_of_i4(static_cast<std::int32_t>(number));
    return exactWhole(whole);
}

/// UTF-8 as Python has it at hand; UTF-16 for a text with half a character.
tovera_value textValue(PyObject* text, Keeper& keeper) {
    Py_ssize_t length = 0;
    if (const auto* const bytes = PyUnicode_AsUTF8AndSize(text, &length))
        return tovera_of_utf8(bytes, static_cast<std::size_t>(length));
    PyErr_Clear();
    keeper.push_back(checked(PyUnicode_AsEncodedString(text, "utf-16-le", "surrogatepass")));
    char* units = nullptr;
    if (PyBytes_AsStringAndSize(keeper.back().get(), &units, &length) != 0) throw Raised();
    return tovera_of_text(reinterpret_cast<const char16_t*>(units), static_cast<std::size_t>(length) / 2);
}

struct FreeArray {
    void operator()(tovera_array* array) const { tovera_array_free(array); }
};
using Array = std::unique_ptr<tovera_array, FreeArray>;

tovera_value ownedArray(Array array) {
    auto value = tovera_of_array(array.release());
    value.owned = 1;
    return value;
}

tovera_value emptyArray() {
    Array array(tovera_array_new());
    if (!array) raise(number::outOfMemory);
    return ownedArray(std::move(array));
}

/// Lists and tuples begin with 1, as messages are numbered, unless they are a `tovera.Array` that says
/// otherwise. An empty one is an array without bounds.
tovera_value arrayValue(PyObject* sequence) {
    Array array(tovera_array_new());
    if (!array) raise(number::outOfMemory);
    const auto length = PySequence_Size(sequence);
    if (length < 0) throw Raised();
    long lower = 1;
    if (isOneOf(sequence, known().array)) {
        const auto bound = checked(PyObject_GetAttr(sequence, known().lower.get()));
        lower = wholeOf(bound.get());
    }
    constexpr auto last = std::numeric_limits<std::int32_t>::max();
    if (length > last || lower > last - length || lower < std::numeric_limits<std::int32_t>::min())
        raise(number::overflow);
    const auto first = static_cast<std::int32_t>(lower);
    const auto end = static_cast<std::int32_t>(lower + length);
    if (length > 0 && tovera_array_redim(array.get(), first, end - 1) != 0) raise(number::outOfMemory);
    for (auto i = first; i < end; ++i) {
        const auto element = checked(PySequence_GetItem(sequence, i - lower));
        if (element.get() == Py_None) continue;
        if (!PyUnicode_Check(element.get())) raise(number::typeMismatch);
        Keeper keeper;
        const auto text = textValue(element.get(), keeper);
        if (tovera_array_set(array.get(), i, &text) != 0) raise(number::outOfMemory);
    }
    return ownedArray(std::move(array));
}

tovera_value objectValue(PyObject* object) {
    auto value = tovera_of_object(hostObject(object));
    value.owned = 1;
    return value;
}

bool isMoment(PyObject* value) {
    return isOneOf(value, known().datetime) || isOneOf(value, known().date) || isOneOf(value, known().time);
}

/// Numbers of other libraries, which Python takes for whole or for broken ones.
bool has(PyObject* value, int slot) {
    return PyType_GetSlot(Py_TYPE(value), slot) != nullptr;
}

tovera_value rareValue(PyObject* value, unsigned declared, Keeper& keeper) {
    if (value == known().null.get()) return tovera_of_type(TOVERA_NULL);
    if (value == known().missing.get()) return tovera_of_type(TOVERA_MISSING);
    if (value == known().nothing.get()) return tovera_of_object(nullptr);
    if (PyUnicode_Check(value)) return textValue(value, keeper);
    if (PyLong_Check(value)) return wholeNumber(value);
    if (PyFloat_Check(value)) return tovera_of_r8(PyFloat_AsDouble(value));
    if (isMoment(value)) return tovera_of_date(daysOf(value));
    if (isOneOf(value, known().decimal)) return exactDecimal(value);
    if (PyBytes_Check(value) || PyByteArray_Check(value)) raise(number::typeMismatch);
    if (isOneOf(value, known().byRef)) {
        keeper.push_back(checked(PyObject_GetAttr(value, known().value.get())));
        // Variables of variables might have no end.
        if (isOneOf(keeper.back().get(), known().byRef)) raise(number::typeMismatch);
        return givenValue(keeper.back().get(), declared, keeper);
    }
    if (declared == TOVERA_OBJECT) return objectValue(value);
    if (PyList_Check(value) || PyTuple_Check(value)) return arrayValue(value);
    if (has(value, Py_nb_index)) return wholeNumber(checked(PyNumber_Index(value)).get());
    if (has(value, Py_nb_float)) return tovera_of_r8(PyFloat_AsDouble(checked(PyNumber_Float(value)).get()));
    return objectValue(value);
}

double numberOf(const tovera_value& value) {
    switch (value.type) {
        case TOVERA_EMPTY:
            return 0;
        case TOVERA_I4:
            return value.as.i4;
        case TOVERA_BOOL:
            return value.as.i2;
        case TOVERA_R8:
        case TOVERA_DATE:
            return value.as.r8;
        default:
            raise(number::typeMismatch);
    }
}

template <class Integer>
Integer rounded(double value) {
    const auto whole = std::nearbyint(value);
    if (!(whole >= std::numeric_limits<Integer>::min() && whole <= std::numeric_limits<Integer>::max()))
        raise(number::overflow);
    return static_cast<Integer>(whole);
}

/// A value as one of the type that a variable keeps.
tovera_value asTyped(const tovera_value& value, long type) {
    if (value.type == type || (type == TOVERA_TEXT && value.type == TOVERA_UTF8)) return value;
    auto typed = tovera_of_type(static_cast<std::uint16_t>(type));
    switch (type) {
        case TOVERA_I2:
            typed.as.i2 = rounded<std::int16_t>(numberOf(value));
            return typed;
        case TOVERA_I4:
            typed.as.i4 = rounded<std::int32_t>(numberOf(value));
            return typed;
        case TOVERA_UI1:
            typed.as.ui1 = rounded<std::uint8_t>(numberOf(value));
            return typed;
        case TOVERA_R4:
            typed.as.r4 = static_cast<float>(numberOf(value));
            if (std::isinf(typed.as.r4)) raise(number::overflow);
            return typed;
        case TOVERA_R8:
        case TOVERA_DATE:
            typed.as.r8 = numberOf(value);
            return typed;
        case TOVERA_BOOL:
            return tovera_of_bool(numberOf(value) != 0);
        default:
            // Texts, arrays and objects are what they are, or have no value yet.
            if (value.type != TOVERA_EMPTY ||
                !(type == TOVERA_TEXT || type == TOVERA_ARRAY || type == TOVERA_OBJECT))
                raise(number::typeMismatch);
            if (type == TOVERA_ARRAY) typed = emptyArray();
            return typed;
    }
}

}  // namespace

tovera_value givenValue(PyObject* value, unsigned declared, Keeper& keeper) {
    if (PyLong_CheckExact(value)) return wholeNumber(value);
    if (PyUnicode_CheckExact(value)) return textValue(value, keeper);
    if (PyFloat_CheckExact(value)) return tovera_of_r8(PyFloat_AsDouble(value));
    if (value == Py_None) return noValue(declared);
    if (PyBool_Check(value)) return tovera_of_bool(value == Py_True);
    return rareValue(value, declared, keeper);
}

tovera_value givenVariable(PyObject* byRef, unsigned declared, bool& isTyped, Keeper& keeper) {
    const auto type = wholeOf(checked(PyObject_GetAttr(byRef, known().type.get())).get());
    keeper.push_back(checked(PyObject_GetAttr(byRef, known().value.get())));
    isTyped = type != TOVERA_VARIANT;
    // A variable without a value is empty, so that it comes back as one.
    const bool isObject = (isTyped ? static_cast<unsigned>(type) : declared) == TOVERA_OBJECT;
    auto value = givenValue(keeper.back().get(), isObject ? TOVERA_OBJECT : TOVERA_VARIANT, keeper);
    if (!isTyped) return value;
    try {
        return asTyped(value, type);
    } catch (...) {
        tovera_clear(&value);
        throw;
    }
}

tovera_value ownedValue(PyObject* result) {
    Keeper keeper;
    auto value = givenValue(result, TOVERA_VARIANT, keeper);
    auto owned = value;
    if (value.type == TOVERA_UTF8) {
        if (tovera_copy_utf8(&owned, value.as.utf8.bytes, value.as.utf8.length) != 0)
            raise(number::outOfMemory);
    } else if (value.type == TOVERA_TEXT) {
        if (tovera_copy_text(&owned, value.as.text.characters, value.as.text.length) != 0)
            raise(number::outOfMemory);
    }
    return owned;
}

}  // namespace tovera::python
