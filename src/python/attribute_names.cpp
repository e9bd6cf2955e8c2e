#include "python/attribute_names.h"

#include <vector>

namespace tovera::python {
namespace {

/// The names that have been asked for; the identifier is the place in the list, from 1. Under the
/// interpreter's lock.
class Names {
  public:
    std::int32_t idOf(PyObject* name) {
        const auto known = Ref(PyObject_GetItem(ids_.get(), name));
        if (known) return static_cast<std::int32_t>(PyLong_AsLong(known.get()));
        PyErr_Clear();
        names_.push_back(another(name));
        const auto id = static_cast<std::int32_t>(names_.size());
        if (PyDict_SetItem(ids_.get(), name, checked(PyLong_FromLong(id)).get()) != 0) throw Raised();
        return id;
    }
    PyObject* at(std::int32_t id) const {
        return id > 0 && static_cast<std::size_t>(id) <= names_.size()
                   ? names_[static_cast<std::size_t>(id) - 1].get()
                   : nullptr;
    }

  private:
    Ref ids_ = checked(PyDict_New());
    std::vector<Ref> names_;
};

Names& names() {
    static auto& made = *std::make_unique<Names>().release();
    return made;
}

/// Whether the class of the object has the attribute, or the object a variable of the name.
bool hasPlainly(PyObject* object, PyObject* name) {
    if (Ref(PyObject_GetAttr(reinterpret_cast<PyObject*>(Py_TYPE(object)), name))) return true;
    PyErr_Clear();
    const Ref variables(PyObject_GetAttrString(object, "__dict__"));
    if (variables && PyMapping_HasKey(variables.get(), name)) return true;
    PyErr_Clear();
    return false;
}

/// The attribute that differs only by the case of its letters.
Ref inOtherCase(PyObject* object, PyObject* name) {
    const auto wanted = lowered(name);
    const auto all = checked(PyObject_Dir(object));
    const auto iterator = checked(PyObject_GetIter(all.get()));
    while (auto candidate = Ref(PyIter_Next(iterator.get()))) {
        if (!PyUnicode_Check(candidate.get())) continue;
        if (PyUnicode_Compare(lowered(candidate.get()).get(), wanted.get()) == 0) return candidate;
    }
    if (PyErr_Occurred()) throw Raised();
    return {};
}

/// For objects that make their attributes up when they are asked for.
bool answersTo(PyObject* object, PyObject* name) {
    if (Ref(PyObject_GetAttr(object, name))) return true;
    if (!PyErr_ExceptionMatches(PyExc_AttributeError)) throw Raised();
    PyErr_Clear();
    return false;
}

Ref attributeLike(PyObject* object, const char* written) {
    auto name = checked(PyUnicode_FromString(written));
    if (hasPlainly(object, name.get())) return name;
    if (auto other = inOtherCase(object, name.get())) return other;
    if (answersTo(object, name.get())) return name;
    return {};
}

}  // namespace

std::optional<std::int32_t> attributeNamed(PyObject* object, const char* name) {
    const auto found = attributeLike(object, name);
    if (!found) return {};
    return names().idOf(found.get());
}

PyObject* attributeName(PyObject* object, std::int32_t member) {
    if (member != 0) return names().at(member);
    const auto found = attributeNamed(object, "Value");
    return found ? names().at(*found) : nullptr;
}

}  // namespace tovera::python
