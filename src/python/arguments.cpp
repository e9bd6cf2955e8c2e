#include "python/arguments.h"

#include "python/errors.h"
#include "python/known.h"
#include "python/taken_value.h"

namespace tovera::python {

namespace {

/// Sets an `I4` field by field: put together elsewhere and copied, it would take several times as long.
bool setWhole(tovera_value& place, PyObject* value) {
    int overflow = 0;
    const long number = PyLong_AsLongAndOverflow(value, &overflow);
    if (overflow != 0 || number != static_cast<std::int32_t>(number)) return false;
    place.type = TOVERA_I4;
    place.owned = 0;
    place.as.i4 = static_cast<std::int32_t>(number);
    return true;
}

}  // namespace

Arguments::Arguments(const tovera_member& member, const Passed& passed) : member_(member) {
    if (passed.inOrder.size() > member.parameter_count) raise(number::wrongArgumentCount);
    try {
        for (auto* const value : passed.inOrder) {
            set(count_, value);
            ++count_;
        }
        if (passed.names) setNamed(passed);
    } catch (...) {
        clear();
        throw;
    }
}

void Arguments::set(std::size_t place, PyObject* value) {
    const bool isPlain = PyLong_CheckExact(value) || PyUnicode_CheckExact(value) || PyFloat_CheckExact(value);
    if (!isPlain && isOneOf(value, known().byRef)) return setVariable(place, value);
    if (PyLong_CheckExact(value) && setWhole(values_[place], value)) return;
    values_[place] = givenValue(value, member_.parameters[place].type, keeper_);
}

void Arguments::setVariable(std::size_t place, PyObject* byRef) {
    bool isTyped = false;
    auto* variable = variables_.data();
    auto* const end = variable + variableCount_;
    while (variable != end && variable->byRef != byRef) ++variable;
    if (variable == end) {
        variable->byRef = byRef;
        variable->value = givenVariable(byRef, member_.parameters[place].type, isTyped, keeper_);
        ++variableCount_;
    }
    values_[place] =
        isTyped ? tovera_by_typed_reference(&variable->value) : tovera_by_reference(&variable->value);
}

void Arguments::setNamed(const Passed& passed) {
    const auto count = PyTuple_Size(passed.names);
    for (Py_ssize_t i = 0; i < count; ++i) {
        auto* const name = PyTuple_GetItem(passed.names, i);
        const auto place = placeOf(name);
        if (place < count_ && values_[place].type != TOVERA_MISSING)
            raise(number::invalidCall, ("Argument donné deux fois : " + utf8Of(name)).c_str());
        fillUpTo(place + 1);
        set(place, passed.inOrder.data()[passed.inOrder.size() + static_cast<std::size_t>(i)]);
    }
}

std::size_t Arguments::placeOf(PyObject* name) const {
    for (std::size_t i = 0; i < member_.parameter_count; ++i)
        if (PyUnicode_CompareWithASCIIString(name, member_.parameters[i].name) == 0) return i;
    const auto lower = lowered(name);
    for (std::size_t i = 0; i < member_.parameter_count; ++i) {
        const auto parameter = checked(PyUnicode_FromString(member_.parameters[i].name));
        const auto lowerParameter = lowered(parameter.get());
        if (PyUnicode_Compare(lower.get(), lowerParameter.get()) == 0) return i;
    }
    raise(number::noSuchNamedArgument, ("Argument nommé introuvable : " + utf8Of(name)).c_str());
}

void Arguments::fillUpTo(std::size_t count) {
    for (; count_ < count; ++count_) values_[count_] = tovera_of_type(TOVERA_MISSING);
}

void Arguments::giveBack() {
    for (std::size_t i = 0; i < variableCount_; ++i) {
        const auto& [byRef, value] = variables_[i];
        if (PyObject_SetAttr(byRef, known().value.get(), takenValue(value).get()) != 0) throw Raised();
    }
}

void Arguments::clear() {
    for (std::size_t i = 0; i < count_; ++i)
        if (values_[i].owned) tovera_clear(&values_[i]);
    for (std::size_t i = 0; i < variableCount_; ++i)
        if (variables_[i].value.owned) tovera_clear(&variables_[i].value);
}

}  // namespace tovera::python
