#include "python/known.h"

namespace tovera::python {
namespace {

Ref attributeOf(const char* module, const char* name) {
    return checked(PyObject_GetAttrString(checked(PyImport_ImportModule(module)).get(), name));
}

Ref interned(const char* name) {
    return checked(PyUnicode_InternFromString(name));
}

}  // namespace

constinit Known* knownObjects = nullptr;

void findKnown() {
    if (!knownObjects) knownObjects = std::make_unique<Known>().release();
    auto& found = *knownObjects;
    constexpr const char* values = "tovera._values";
    found.error = attributeOf(values, "Error");
    found.memberError = attributeOf(values, "MemberError");
    found.byRef = attributeOf(values, "ByRef");
    found.array = attributeOf(values, "Array");
    found.null = attributeOf(values, "Null");
    found.nothing = attributeOf(values, "Nothing");
    found.missing = attributeOf(values, "Missing");
    found.datetime = attributeOf("datetime", "datetime");
    found.date = attributeOf("datetime", "date");
    found.time = attributeOf("datetime", "time");
    found.decimal = attributeOf("decimal", "Decimal");
    found.value = interned("value");
    found.type = interned("_type");
    found.lower = interned("lower");
}

}  // namespace tovera::python
