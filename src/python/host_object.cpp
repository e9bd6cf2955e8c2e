#include "python/host_object.h"

#include <vector>

#include "python/attribute_names.h"
#include "python/call.h"
#include "python/given_value.h"
#include "python/host_handle.h"
#include "python/known.h"
#include "python/lock.h"
#include "python/taken_value.h"

namespace tovera::python {
namespace {

/// The interface that every control of a form has.
constexpr tovera_interface_id controlInterface{
    0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};

bool isSame(const tovera_interface_id& a, const tovera_interface_id& b) {
    return a.data1 == b.data1 && a.data2 == b.data2 && a.data3 == b.data3 &&
           std::equal(std::begin(a.data4), std::end(a.data4), std::begin(b.data4));
}

PyObject* objectOf(void* data) {
    return static_cast<PyObject*>(data);
}

/// Runs the body with the interpreter's lock. An exception of Python is kept by the call and told as a
/// failure.
template <class Body>
std::int32_t forComponent(tovera_failure* failure, Body body) noexcept {
    const Locked locked;
    try {
        return orWaitForTheEnd(body);
    } catch (const Raised&) {
        return Call::keepRaised(failure);
    } catch (...) {
        return tovera_failure_set(failure, number::outOfMemory, nullptr, nullptr);
    }
}

/// The objects that a thread is letting go of, each while the one that held it goes.
struct Dropping {
    int depth = 0;
    std::vector<Ref> later;
};
[[gnu::tls_model("initial-exec")]] thread_local constinit Dropping* dropping = nullptr;

/// Those that end within each other's end; longer chains would take all of the stack.
constexpr int deepestDrop = 50;

void dropWithin(Dropping& all, Ref object) {
    ++all.depth;
    object.reset();
    --all.depth;
}

void keepForLater(Dropping& all, Ref object) {
    try {
        all.later.push_back(std::move(object));
    } catch (const std::bad_alloc&) {
        // It ends here then.
    }
}

/// What ends too deep within others ends after the outermost of them.
void dropHeld(Ref object) {
    if (dropping) {
        if (dropping->depth < deepestDrop)
            dropWithin(*dropping, std::move(object));
        else
            keepForLater(*dropping, std::move(object));
        return;
    }
    Dropping all;
    dropping = &all;
    dropWithin(all, std::move(object));
    while (!all.later.empty()) {
        auto next = std::move(all.later.back());
        all.later.pop_back();
        dropWithin(all, std::move(next));
    }
    dropping = nullptr;
}

void drop(void* data) noexcept {
    const Locked locked;
    // What the object's end does must not disturb an exception on its way.
    PyObject* type = nullptr;
    PyObject* value = nullptr;
    PyObject* traceback = nullptr;
    PyErr_Fetch(&type, &value, &traceback);
    dropHeld(Ref(objectOf(data)));
    PyErr_Restore(type, value, traceback);
}

std::int32_t memberNamed(void* data, const char* name, std::int32_t* member) {
    return forComponent(nullptr, [&] {
        const auto found = attributeNamed(objectOf(data), name);
        if (!found) return number::noSuchMember;
        *member = *found;
        return 0;
    });
}

Ref argumentsOf(const tovera_value* values, std::size_t count) {
    auto arguments = checked(PyTuple_New(static_cast<Py_ssize_t>(count)));
    for (std::size_t i = 0; i < count; ++i) {
        const auto& value = values[i].type == TOVERA_REFERENCE ? *values[i].as.reference : values[i];
        if (PyTuple_SetItem(arguments.get(), static_cast<Py_ssize_t>(i), takenValue(value).release()) != 0)
            throw Raised();
    }
    return arguments;
}

std::int32_t invoke(void* data, std::int32_t member, unsigned flags, tovera_value* arguments,
                    std::size_t count, tovera_value* result, tovera_failure* failure) {
    return forComponent(failure, [&] {
        auto* const object = objectOf(data);
        auto* const name = attributeName(object, member);
        if (!name) return tovera_failure_set(failure, number::noSuchMember, nullptr, nullptr);
        const auto given = argumentsOf(arguments, count);
        if ((flags & (TOVERA_METHOD | TOVERA_READ)) == 0) {
            if (count != 1) return tovera_failure_set(failure, number::wrongArgumentCount, nullptr, nullptr);
            if (PyObject_SetAttr(object, name, PyTuple_GetItem(given.get(), 0)) != 0) throw Raised();
            return 0;
        }
        auto value = checked(PyObject_GetAttr(object, name));
        if (PyCallable_Check(value.get()))
            value = checked(PyObject_Call(value.get(), given.get(), nullptr));
        else if (count > 0)
            return tovera_failure_set(failure, number::wrongArgumentCount, nullptr, nullptr);
        *result = ownedValue(value.get());
        return 0;
    });
}

/// A form is walked through by its own iteration, else by that of its `Controls`.
Ref iteratorOf(PyObject* object) {
    if (auto* const iterator = PyObject_GetIter(object)) return Ref(iterator);
    if (!PyErr_ExceptionMatches(PyExc_TypeError) || PyType_GetSlot(Py_TYPE(object), Py_tp_iter))
        throw Raised();
    PyErr_Clear();
    const auto controls = attributeNamed(object, "Controls");
    if (!controls) return {};
    auto value = checked(PyObject_GetAttr(object, attributeName(object, *controls)));
    if (PyCallable_Check(value.get())) value = checked(PyObject_CallNoArgs(value.get()));
    return checked(PyObject_GetIter(value.get()));
}

void* elements(void* data, tovera_failure* failure) {
    Ref iterator;
    forComponent(failure, [&] {
        iterator = iteratorOf(objectOf(data));
        return iterator ? 0 : tovera_failure_set(failure, number::notEnumerable, nullptr, nullptr);
    });
    return iterator.release();
}

int next(void* walk, tovera_value* element, tovera_failure* failure) {
    int found = -1;
    forComponent(failure, [&] {
        const Ref value(PyIter_Next(objectOf(walk)));
        if (!value && PyErr_Occurred()) throw Raised();
        found = value ? 1 : 0;
        if (value) *element = ownedValue(value.get());
        return 0;
    });
    return found;
}

void end(void* walk) {
    drop(walk);
}

/// All elements of a form count as its controls.
tovera_object* query(void* data, const tovera_interface_id* interfaceId) {
    tovera_object* same = nullptr;
    forComponent(nullptr, [&] {
        if (isSame(*interfaceId, controlInterface)) same = hostObject(objectOf(data));
        return 0;
    });
    return same;
}

constexpr tovera_object_functions functions{
    sizeof(tovera_object_functions), 0, drop, memberNamed, invoke, elements, next, end, query};

}  // namespace

void useHostObjects() {
    setHostFunctions(functions);
}

}  // namespace tovera::python
