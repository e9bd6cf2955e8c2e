#include "automation/class_factory.h"

#include "automation/failures.h"
#include "automation/module_state.h"
#include "platform/windows/com_pointer.h"

namespace tovera {

STDMETHODIMP ClassFactory::QueryInterface(REFIID interfaceId, void** found) {
    if (!found) return E_POINTER;
    const bool known = interfaceId == IID_IUnknown || interfaceId == IID_IClassFactory;
    *found = known ? static_cast<IClassFactory*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() {
    ModuleState::addReference();
    return ++references_;
}

STDMETHODIMP_(ULONG) ClassFactory::Release() {
    const ULONG left = --references_;
    ModuleState::removeReference();
    return left;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID interfaceId, void** created) {
    if (!created) return E_POINTER;
    *created = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    try {
        ComPointer<IDispatch> object;
        *object.out() = publishedClass_.create();
        return object->QueryInterface(interfaceId, created);
    } catch (...) {
        return statusOfCurrentException();
    }
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    if (!lock) return ModuleState::removeLock() ? S_OK : E_FAIL;
    ModuleState::addLock();
    return S_OK;
}

}  // namespace tovera
