#include "automation/failures.h"
#include "automation/module_state.h"
#include "automation/published_classes.h"
#include "automation/registration.h"
#include "automation/type_library.h"

// The four functions that the component exports.

STDAPI DllGetClassObject(REFCLSID classId, REFIID interfaceId, void** found) {
    if (!found) return E_POINTER;
    *found = nullptr;
    try {
        auto* const factory = tovera::findFactory(classId);
        return factory ? factory->QueryInterface(interfaceId, found) : CLASS_E_CLASSNOTAVAILABLE;
    } catch (...) {
        return tovera::statusOfCurrentException();
    }
}

STDAPI DllCanUnloadNow() {
    if (!tovera::ModuleState::isIdle()) return S_FALSE;
    tovera::releaseTypeLibrary();
    return S_OK;
}

STDAPI DllRegisterServer() {
    try {
        return tovera::registerComponent();
    } catch (...) {
        return tovera::statusOfCurrentException();
    }
}

STDAPI DllUnregisterServer() {
    try {
        return tovera::unregisterComponent();
    } catch (...) {
        return tovera::statusOfCurrentException();
    }
}
