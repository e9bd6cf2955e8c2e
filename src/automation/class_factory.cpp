#include "automation/class_factory.h"

#include <algorithm>
#include <vector>

#include "automation/failures.h"
#include "automation/module_state.h"
#include "automation/shell_classes.h"
#include "platform/windows/com_pointer.h"

namespace tovera {

STDMETHODIMP ClassFactory::QueryInterface(REFIID interfaceId, void** found) {
    if (!found) return E_POINTER;
    const bool known = interfaceId == IID_IUnknown || interfaceId == IID_IClassFactory;
    *found = known ? static_cast<IClassFactory*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID interfaceId, void** created) {
    if (!created) return E_POINTER;
    *created = nullptr;
    if (outer) return CLASS_E_NOAGGREGATION;
    try {
        ComPointer<IDispatch> object;
        *object.out() = shellClass_.create();
        return object->QueryInterface(interfaceId, created);
    } catch (...) {
        return statusOfCurrentException();
    }
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) {
    if (lock) {
        ModuleState::hold();
    } else {
        ModuleState::letGo();
    }
    return S_OK;
}

ClassFactory* findFactory(const CLSID& classId) {
    static std::vector<ClassFactory> factories(shellClasses().begin(), shellClasses().end());
    const auto found = std::ranges::find(factories, classId, &ClassFactory::classId);
    return found == factories.end() ? nullptr : &*found;
}

}  // namespace tovera
