#include "python/class_rows.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "python/errors.h"

namespace tovera::python {
namespace {

/// The classes whose members only calculate: letting others run would cost more than they do.
constexpr std::array<std::string_view, 3> calculating{"Cls_Date", "Cls_Conversion", "Cls_Math"};

void addName(ComponentClass& made, const char* written) {
    const auto name = checked(PyUnicode_InternFromString(written));
    const auto lower = lowered(name.get());
    if (PySet_Add(made.names.get(), name.get()) != 0) throw Raised();
    if (PyDict_SetItem(made.namesByLower.get(), lower.get(), name.get()) != 0) throw Raised();
}

void addToProperty(ComponentClass& made, const Member& member) {
    const auto isSame = [&](const Property& property) {
        return (property.read ? property.read : property.write)->row->id == member.row->id;
    };
    auto property = std::ranges::find_if(made.properties, isSame);
    if (property == made.properties.end()) property = made.properties.insert(property, Property{});
    (member.row->kind == TOVERA_READ ? property->read : property->write) = &member;
}

ComponentClass readClass(const tovera_class& row) {
    ComponentClass made;
    made.row = &row;
    made.mayTakeLong = std::ranges::find(calculating, std::string_view(row.name)) == calculating.end();
    made.names = checked(PySet_New(nullptr));
    made.namesByLower = checked(PyDict_New());
    for (std::size_t i = 0; i < row.member_count; ++i) {
        const auto& member = *row.members[i];
        made.members.push_back({&member, made.mayTakeLong && member.kind == TOVERA_METHOD});
        addName(made, member.name);
        const bool isObject = member.kind == TOVERA_ASSIGN && member.parameters[0].type == TOVERA_OBJECT;
        if (isObject) made.objectProperty = &member;
    }
    for (const auto& member : made.members)
        if (member.row->kind != TOVERA_METHOD) addToProperty(made, member);
    return made;
}

}  // namespace

std::vector<ComponentClass>& componentClasses() {
    static auto& classes = *std::make_unique<std::vector<ComponentClass>>().release();
    return classes;
}

void readClasses() {
    std::size_t count = 0;
    const auto* const rows = tovera_classes(&count);
    for (std::size_t i = 0; i < count; ++i) componentClasses().push_back(readClass(*rows[i]));
}

const ComponentClass& classOf(PyTypeObject* type) {
    for (const auto& made : componentClasses())
        if (made.type == type) return made;
    for (const auto& made : componentClasses())
        if (PyType_IsSubtype(type, made.type)) return made;
    raise(number::cannotCreateObject);
}

const ComponentClass* classNamed(const char* name) {
    const auto* const row = tovera_find_class(name);
    const auto found = std::ranges::find(componentClasses(), row, &ComponentClass::row);
    return row && found != componentClasses().end() ? &*found : nullptr;
}

}  // namespace tovera::python
