#include "python/component_class.h"

#include <algorithm>
#include <array>
#include <map>
#include <string_view>

#include "python/arguments.h"
#include "python/component_object.h"
#include "python/errors.h"

namespace tovera::python {
namespace {

/// Python calls a method without telling its name: each place in a class has a function of its own.
template <std::size_t Place>
PyObject* callAt(PyObject* self, PyObject* const* arguments, Py_ssize_t count, PyObject* names) {
    return callMethod(self, Place, arguments, count, names);
}

constexpr std::size_t mostMembers = 64;

template <std::size_t... Places>
constexpr auto functionsOf(std::index_sequence<Places...>) {
    return std::array<_PyCFunctionFastWithKeywords, sizeof...(Places)>{&callAt<Places>...};
}
constexpr auto functions = functionsOf(std::make_index_sequence<mostMembers>());

PyCFunction functionAt(std::size_t place) {
    return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(functions[place]));
}

/// The classes whose members only calculate: letting others run would cost more than they do.
constexpr std::array<std::string_view, 3> calculating{"Cls_Date", "Cls_Conversion", "Cls_Math"};

std::vector<std::unique_ptr<ComponentClass>>& classes() {
    static auto& made = *std::make_unique<std::vector<std::unique_ptr<ComponentClass>>>().release();
    return made;
}

/// `Paques($self, /, Annee)` and a line that Python takes for the end of the signature.
std::string signatureFor(const tovera_member& row) {
    std::string text = std::string(row.name) + "($self, /";
    for (std::size_t i = 0; i < row.parameter_count; ++i) {
        text += std::string(", ") + row.parameters[i].name;
        if (row.parameters[i].mode == TOVERA_OPTIONAL) text += "=None";
    }
    return text + ")\n--\n\n";
}

std::string explanation(const tovera_member& row) {
    std::string help = row.help;
    std::erase(help, '\r');
    return (help.empty() ? "" : help + "\n\n") + row.signature;
}

void addMethod(ComponentClass& made, std::size_t place) {
    const auto& row = *made.members[place].row;
    made.documents.push_back(signatureFor(row) + explanation(row));
    made.methods.push_back(
        {row.name, functionAt(place), METH_FASTCALL | METH_KEYWORDS, made.documents.back().c_str()});
}

void addAccessors(ComponentClass& made) {
    std::map<std::int32_t, Property> found;
    std::vector<std::int32_t> order;
    for (const auto& member : made.members) {
        if (member.row->kind == TOVERA_METHOD) continue;
        if (!found.contains(member.row->id)) order.push_back(member.row->id);
        auto& property = found[member.row->id];
        (member.row->kind == TOVERA_READ ? property.read : property.write) = &member;
    }
    for (const auto id : order) made.properties.push_back(found[id]);
    for (auto& property : made.properties) {
        const auto& row = *(property.read ? property.read : property.write)->row;
        auto text = property.read ? explanation(*property.read->row) : std::string();
        if (property.write) text += (text.empty() ? "" : "\n") + std::string(property.write->row->signature);
        made.documents.push_back(text);
        made.accessors.push_back({row.name, property.read ? readProperty : nullptr,
                                  property.write ? writeProperty : nullptr, made.documents.back().c_str(),
                                  &property});
    }
}

void readRow(ComponentClass& made) {
    const auto& row = *made.row;
    if (row.member_count > mostMembers) raise(number::overflow, "A class with too many members");
    const bool calculates = std::ranges::find(calculating, std::string_view(row.name)) != calculating.end();
    made.mayTakeLong = !calculates;
    made.names = checked(PyDict_New());
    for (std::size_t i = 0; i < row.member_count; ++i) {
        const auto& member = *row.members[i];
        if (member.parameter_count > mostParameters)
            raise(number::overflow, "A member with too many parameters");
        made.members.push_back({&member, !calculates && member.kind == TOVERA_METHOD});
        if (member.kind == TOVERA_ASSIGN && member.parameters[0].type == TOVERA_OBJECT)
            made.objectProperty = &member;
        const auto name = checked(PyUnicode_InternFromString(member.name));
        const auto lower = checked(PyObject_CallMethod(name.get(), "lower", nullptr));
        if (PyDict_SetItem(made.names.get(), lower.get(), name.get()) != 0) throw Raised();
    }
    made.documents.reserve(row.member_count + 1);
    for (std::size_t i = 0; i < made.members.size(); ++i)
        if (made.members[i].row->kind == TOVERA_METHOD) addMethod(made, i);
    addAccessors(made);
    made.documents.push_back(std::string(row.help) + (*row.help ? "\n\n" : "") + row.prog_id);
    made.methods.push_back({});
    made.accessors.push_back({});
}

template <class T>
void* slotOf(T* function) {
    return reinterpret_cast<void*>(function);
}

Ref makeType(ComponentClass& made) {
    std::array<PyMemberDef, 2> weak{};
    weak[0].name = "__weaklistoffset__";
    weak[0].type = T_PYSSIZET;
    weak[0].offset = offsetof(ComponentObject, weakReferences);
    weak[0].flags = READONLY;
    std::vector<PyType_Slot> slots{
        {Py_tp_new, slotOf(newObject)},
        {Py_tp_dealloc, slotOf(endObject)},
        {Py_tp_getattro, slotOf(attributeOfObject)},
        {Py_tp_setattro, slotOf(setAttributeOfObject)},
        {Py_tp_methods, made.methods.data()},
        {Py_tp_getset, made.accessors.data()},
        {Py_tp_members, weak.data()},
        {Py_tp_doc, made.documents.back().data()},
    };
    unsigned flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE;
    if (made.objectProperty) {
        flags |= Py_TPFLAGS_HAVE_GC;
        slots.push_back({Py_tp_traverse, slotOf(traverseObject)});
        slots.push_back({Py_tp_clear, slotOf(clearObject)});
    }
    slots.push_back({0, nullptr});
    const auto name = std::string("tovera.") + made.row->name;
    PyType_Spec spec{name.c_str(), sizeof(ComponentObject), 0, flags, slots.data()};
    return checked(PyType_FromSpec(&spec));
}

}  // namespace

void addClasses(PyObject* module) {
    std::size_t count = 0;
    const auto* const rows = tovera_classes(&count);
    for (std::size_t i = 0; i < count; ++i) {
        auto& made = *classes().emplace_back(std::make_unique<ComponentClass>());
        made.row = rows[i];
        readRow(made);
        auto type = makeType(made);
        made.type = reinterpret_cast<PyTypeObject*>(type.get());
        if (PyModule_AddObjectRef(module, made.row->name, type.get()) != 0) throw Raised();
        type.release();
    }
}

const ComponentClass& classOf(PyTypeObject* type) {
    for (const auto& made : classes())
        if (made->type == type) return *made;
    for (const auto& made : classes())
        if (PyType_IsSubtype(type, made->type)) return *made;
    raise(number::cannotCreateObject);
}

const ComponentClass* classNamed(const char* name) {
    const auto* const row = tovera_find_class(name);
    const auto found = std::ranges::find(classes(), row, [](const auto& made) { return made->row; });
    return row && found != classes().end() ? found->get() : nullptr;
}

}  // namespace tovera::python
