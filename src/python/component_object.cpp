#include "python/component_object.h"

#include "python/arguments.h"
#include "python/call.h"
#include "python/host_handle.h"
#include "python/host_services.h"
#include "python/known.h"
#include "python/lock.h"
#include "python/taken_value.h"

namespace tovera::python {
namespace {

ComponentObject& objectOf(PyObject* self) {
    return *reinterpret_cast<ComponentObject*>(self);
}

/// A failure of the call is told first: it may be the reason for a value that Python has not.
void giveBack(Arguments& arguments, bool hasFailed) {
    try {
        arguments.giveBack();
    } catch (const Raised&) {
        if (!hasFailed) throw;
        PyErr_Clear();
    }
}

/// A call may change what the object property holds, also by calls within it. While any is under way nothing
/// counts as held; afterwards the component is asked.
class HeldUnknown {
  public:
    explicit HeldUnknown(ComponentObject& object) : object_(object) {
        ++object_.calls;
        object_.held = nullptr;
    }
    HeldUnknown(const HeldUnknown&) = delete;
    HeldUnknown& operator=(const HeldUnknown&) = delete;
    ~HeldUnknown() {
        const auto* const property = object_.ownClass->objectProperty;
        if (--object_.calls != 0 || !property || !object_.handle) return;
        Cleared now;
        if (tovera_invoke(object_.handle, property->id, TOVERA_READ, nullptr, 0, &now, nullptr) == 0)
            object_.held = hostData(now.as.object);
    }

  private:
    ComponentObject& object_;
};

/// Runs a member. Variables have their new values afterwards, after a failure as well.
Ref run(ComponentObject& object, const Member& member, unsigned flags, const Passed& passed) {
    if (!object.handle) raise(number::objectRequired);
    const HeldUnknown unknown(object);
    Arguments arguments(*member.row, passed);
    Cleared result;
    Failure failure;
    Call call;
    std::int32_t number = 0;
    {
        const OthersRun others(member.mayTakeLong);
        const auto values = arguments.values();
        number = tovera_invoke(object.handle, member.row->id, flags, values.data(), values.size(), &result,
                               &failure);
    }
    giveBack(arguments, number != 0);
    call.end(number, failure);
    return takenValue(result);
}

Ref newOf(PyTypeObject* type, bool hasArguments) {
    const auto& made = classOf(type);
    if (hasArguments && type == made.type) raise(number::wrongArgumentCount);
    const auto allocate = reinterpret_cast<allocfunc>(PyType_GetSlot(type, Py_tp_alloc));
    auto self = checked(allocate(type, 0));
    auto& object = objectOf(self.get());
    object.ownClass = &made;
    Failure failure;
    Call call;
    {
        const OthersRun others(made.mayTakeLong);
        object.handle = tovera_create(hostOfPython(), made.row->prog_id, &failure);
    }
    call.end(failure.number, failure);
    if (!object.handle) raise(number::cannotCreateObject);
    return self;
}

/// The member with this name in another case of its letters; null where there is none. Borrowed.
PyObject* memberLike(const ComponentObject& object, PyObject* name) {
    const int isWrittenSo = PySet_Contains(object.ownClass->names.get(), name);
    if (isWrittenSo < 0) throw Raised();
    if (isWrittenSo > 0) return nullptr;
    const auto lower = lowered(name);
    auto* const found = PyDict_GetItemWithError(object.ownClass->namesByLower.get(), lower.get());
    if (!found && PyErr_Occurred()) throw Raised();
    return found;
}

}  // namespace

PyObject* callMethod(PyObject* self, std::size_t place, PyObject* const* arguments, Py_ssize_t count,
                     PyObject* names) noexcept {
    return forPython([&] {
        auto& object = objectOf(self);
        return run(object, object.ownClass->members[place], TOVERA_METHOD | TOVERA_READ,
                   {{arguments, static_cast<std::size_t>(count)}, names});
    });
}

PyObject* readProperty(PyObject* self, void* property) noexcept {
    return forPython([&] {
        return run(objectOf(self), *static_cast<const Property*>(property)->read, TOVERA_METHOD | TOVERA_READ,
                   {});
    });
}

int writeProperty(PyObject* self, PyObject* value, void* property) noexcept {
    const Ref done(forPython([&] {
        const auto* const member = static_cast<const Property*>(property)->write;
        if (!value) raise(number::noSuchMember);
        auto& object = objectOf(self);
        const bool isObject = member->row->parameters[0].type == TOVERA_OBJECT;
        const unsigned flags = isObject ? TOVERA_WRITE | TOVERA_ASSIGN : TOVERA_WRITE;
        return run(object, *member, flags, {{&value, 1}, nullptr});
    }));
    return done ? 0 : -1;
}

PyObject* newObject(PyTypeObject* type, PyObject* arguments, PyObject* names) noexcept {
    return forPython([&] {
        const bool hasArguments = PyTuple_Size(arguments) > 0 || (names && PyDict_Size(names) > 0);
        return newOf(type, hasArguments);
    });
}

void endObject(PyObject* self) noexcept {
    auto* const type = Py_TYPE(self);
    if (PyType_GetFlags(type) & Py_TPFLAGS_HAVE_GC) PyObject_GC_UnTrack(self);
    auto& object = objectOf(self);
    if (object.weakReferences) orWaitForTheEnd([&] { PyObject_ClearWeakRefs(self); });
    object.held = nullptr;
    tovera_release(std::exchange(object.handle, nullptr));
    reinterpret_cast<freefunc>(PyType_GetSlot(type, Py_tp_free))(self);
    Py_DecRef(reinterpret_cast<PyObject*>(type));
}

int traverseObject(PyObject* self, visitproc visit, void* arg) noexcept {
    Py_VISIT(Py_TYPE(self));
    Py_VISIT(objectOf(self).held);
    return 0;
}

/// The object of a circle that nobody can reach any more gives up what it has; calls of it are error 91.
int clearObject(PyObject* self) noexcept {
    auto& object = objectOf(self);
    object.held = nullptr;
    tovera_release(std::exchange(object.handle, nullptr));
    return 0;
}

PyObject* attributeOfObject(PyObject* self, PyObject* name) noexcept {
    return forPython([&]() -> Ref {
        if (auto* const found = PyObject_GenericGetAttr(self, name)) return Ref(found);
        if (!PyErr_ExceptionMatches(PyExc_AttributeError)) throw Raised();
        auto first = takeRaised();
        if (isOneOf(first.get(), known().memberError)) {
            putRaised(std::move(first));
            throw Raised();
        }
        if (auto* const member = memberLike(objectOf(self), name))
            return checked(PyObject_GenericGetAttr(self, member));
        raiseAbout(number::noSuchMember, name);
    });
}

int setAttributeOfObject(PyObject* self, PyObject* name, PyObject* value) noexcept {
    const Ref done(forPython([&]() -> Ref {
        auto* const member = memberLike(objectOf(self), name);
        if (PyObject_GenericSetAttr(self, member ? member : name, value) == 0) return another(Py_None);
        if (!PyErr_ExceptionMatches(PyExc_AttributeError)) throw Raised();
        auto first = takeRaised();
        if (!isOneOf(first.get(), known().memberError)) raiseAbout(number::noSuchMember, name);
        putRaised(std::move(first));
        throw Raised();
    }));
    return done ? 0 : -1;
}

}  // namespace tovera::python
