#include "python/component_types.h"

#include <array>
#include <cstddef>
#include <deque>
#include <string>
#include <utility>

#include "python/arguments.h"
#include "python/class_rows.h"
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

/// What a type refers to for as long as it lives.
struct Parts {
    std::deque<std::string> documents;
    std::vector<PyMethodDef> methods;
    std::vector<PyGetSetDef> accessors;

    const char* kept(std::string text) { return documents.emplace_back(std::move(text)).c_str(); }
};

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

void addMethods(Parts& parts, const ComponentClass& made) {
    if (made.members.size() > mostMembers) raise(number::overflow, "A class with too many members");
    for (std::size_t place = 0; place < made.members.size(); ++place) {
        const auto& row = *made.members[place].row;
        if (row.parameter_count > mostParameters)
            raise(number::overflow, "A member with too many parameters");
        if (row.kind != TOVERA_METHOD) continue;
        parts.methods.push_back({row.name, functionAt(place), METH_FASTCALL | METH_KEYWORDS,
                                 parts.kept(signatureFor(row) + explanation(row))});
    }
    parts.methods.push_back({});
}

void addAccessors(Parts& parts, const ComponentClass& made) {
    for (const auto& property : made.properties) {
        auto text = property.read ? explanation(*property.read->row) : std::string();
        if (property.write) text += (text.empty() ? "" : "\n") + std::string(property.write->row->signature);
        const auto* const name = (property.read ? property.read : property.write)->row->name;
        parts.accessors.push_back({name, property.read ? readProperty : nullptr,
                                   property.write ? writeProperty : nullptr, parts.kept(std::move(text)),
                                   const_cast<Property*>(&property)});
    }
    parts.accessors.push_back({});
}

template <class T>
void* slotOf(T* function) {
    return reinterpret_cast<void*>(function);
}

Ref makeType(const ComponentClass& made, Parts& parts) {
    addMethods(parts, made);
    addAccessors(parts, made);
    const auto& row = *made.row;
    const auto* const document = parts.kept(std::string(row.help) + (*row.help ? "\n\n" : "") + row.prog_id);
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
        {Py_tp_methods, parts.methods.data()},
        {Py_tp_getset, parts.accessors.data()},
        {Py_tp_members, weak.data()},
        {Py_tp_doc, const_cast<char*>(document)},
    };
    unsigned flags = Py_TPFLAGS_DEFAULT | Py_TPFLAGS_BASETYPE;
    if (made.objectProperty) {
        flags |= Py_TPFLAGS_HAVE_GC;
        slots.push_back({Py_tp_traverse, slotOf(traverseObject)});
        slots.push_back({Py_tp_clear, slotOf(clearObject)});
    }
    slots.push_back({0, nullptr});
    const auto* const name = parts.kept(std::string("tovera.") + row.name);
    PyType_Spec described{name, sizeof(ComponentObject), 0, flags, slots.data()};
    return checked(PyType_FromSpec(&described));
}

}  // namespace

void addTypes(PyObject* module) {
    static auto& parts = *std::make_unique<std::deque<Parts>>().release();
    for (auto& made : componentClasses()) {
        auto type = makeType(made, parts.emplace_back());
        if (PyModule_AddObjectRef(module, made.row->name, type.get()) != 0) throw Raised();
        made.type = reinterpret_cast<PyTypeObject*>(type.release());
    }
}

}  // namespace tovera::python
