#include "python/host_services.h"

#include "python/call.h"
#include "python/host_handle.h"
#include "python/known.h"
#include "python/lock.h"

namespace tovera::python {
namespace {

/// The number of the OK button, which every box has.
constexpr std::int32_t okButton = 1;
/// Leaves the box to the system.
constexpr std::int32_t notShown = -1;

std::int32_t messageBox(void*, const char* text, std::int32_t flags, const char* title) {
    const Locked locked;
    return orWaitForTheEnd([&] {
        const Ref function(known().messageBox ? another(known().messageBox.get()) : Ref());
        if (!function) return notShown;
        if (!Ref(PyObject_CallFunction(function.get(), "ssi", text, title, flags)))
            Call::keepRaised(nullptr, true);
        return okButton;
    });
}

/// Ctrl-C ends a wait. What the pump of the user raises does, too.
std::int32_t pump(void*) {
    const Locked locked;
    return orWaitForTheEnd([] {
        const Ref function(known().pump ? another(known().pump.get()) : Ref());
        if (PyErr_CheckSignals() == 0 && (!function || Ref(PyObject_CallNoArgs(function.get())))) return 0;
        Call::keepRaised(nullptr, true);
        return number::interrupted;
    });
}

tovera_object* createObject(void*, const char* progId) {
    const Locked locked;
    return orWaitForTheEnd([&]() -> tovera_object* {
        const Ref function(known().createObject ? another(known().createObject.get()) : Ref());
        if (!function) return nullptr;
        try {
            const auto made = checked(PyObject_CallFunction(function.get(), "s", progId));
            return made.get() == Py_None ? nullptr : hostObject(made.get());
        } catch (const Raised&) {
            Call::keepRaised(nullptr, true);
            return nullptr;
        }
    });
}

}  // namespace

tovera_host* hostOfPython() {
    constexpr tovera_services services{sizeof(tovera_services), messageBox, pump, createObject};
    static auto* const host = tovera_host_new(&services, nullptr);
    return host;
}

}  // namespace tovera::python
