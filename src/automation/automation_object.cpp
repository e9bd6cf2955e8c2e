#include "automation/automation_object.h"

#include "automation/module_state.h"
#include "automation/type_library.h"
#include "platform/platform.h"

namespace tovera {

AutomationObject::AutomationObject(const PublishedClass& publishedClass)
    : ComponentObject(publishedClass.description(), home().services),
      publishedClass_(publishedClass),
      dual_{publishedClass.slots, this} {
    ModuleState::addReference();
}

AutomationObject::~AutomationObject() {
    ModuleState::removeReference();
}

STDMETHODIMP AutomationObject::QueryInterface(REFIID interfaceId, void** found) {
    if (!found) return E_POINTER;
    if (interfaceId == IID_IUnknown || interfaceId == IID_IDispatch ||
        interfaceId == publishedClass_.interfaceId) {
        *found = &dual_;
    } else if (interfaceId == IID_ISupportErrorInfo) {
        *found = static_cast<ISupportErrorInfo*>(this);
    } else if (interfaceId == IID_IProvideClassInfo) {
        *found = static_cast<IProvideClassInfo*>(this);
    } else if (interfaceId == ownObjectId()) {
        *found = static_cast<OwnObject*>(this);
    } else {
        *found = nullptr;
        return E_NOINTERFACE;
    }
    addRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) AutomationObject::AddRef() {
    addRef();
    return references();
}

STDMETHODIMP_(ULONG) AutomationObject::Release() {
    const ULONG left = references() - 1;
    release();
    return left;
}

STDMETHODIMP AutomationObject::InterfaceSupportsErrorInfo(REFIID interfaceId) {
    return interfaceId == publishedClass_.interfaceId ? S_OK : S_FALSE;
}

STDMETHODIMP AutomationObject::GetClassInfo(ITypeInfo** found) {
    if (!found) return E_POINTER;
    *found = nullptr;
    return findTypeInfo(publishedClass_.classId, found);
}

}  // namespace tovera
