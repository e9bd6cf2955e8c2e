#include "automation/standard_slots.h"

#include "automation/dispatch_call.h"
#include "automation/member_names.h"
#include "automation/type_library.h"

namespace tovera {
namespace {

// The standard slots of the dual interface. The other interfaces reach the same object through their own.

HRESULT STDMETHODCALLTYPE queryInterface(DualInterface* self, REFIID interfaceId, void** found) {
    return self->object->QueryInterface(interfaceId, found);
}

ULONG STDMETHODCALLTYPE addReference(DualInterface* self) {
    return self->object->AddRef();
}

ULONG STDMETHODCALLTYPE releaseReference(DualInterface* self) {
    return self->object->Release();
}

HRESULT STDMETHODCALLTYPE getTypeInfoCount(DualInterface*, UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

HRESULT STDMETHODCALLTYPE getTypeInfo(DualInterface* self, UINT index, LCID, ITypeInfo** found) {
    if (!found) return E_POINTER;
    *found = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return findTypeInfo(self->object->publishedClass().interfaceId, found);
}

HRESULT STDMETHODCALLTYPE getIdsOfNames(DualInterface* self, REFIID reserved, LPOLESTR* names, UINT count,
                                        LCID, DISPID* ids) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!names || !ids || count == 0 || !names[0]) return E_INVALIDARG;
    return findNames(self->object->description(), {names, count}, {ids, count});
}

HRESULT STDMETHODCALLTYPE invoke(DualInterface* self, DISPID member, REFIID reserved, LCID, WORD kind,
                                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                                 UINT* argumentAtFault) {
    if (reserved != IID_NULL) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_INVALIDARG;
    return callByName(*self->object, member, kind, *parameters, {result, exception, argumentAtFault});
}

}  // namespace

std::array<Slot, standardSlots> standardSlotFunctions() {
    return {reinterpret_cast<Slot>(&queryInterface),
            reinterpret_cast<Slot>(&addReference),
            reinterpret_cast<Slot>(&releaseReference),
            reinterpret_cast<Slot>(&getTypeInfoCount),
            reinterpret_cast<Slot>(&getTypeInfo),
            reinterpret_cast<Slot>(&getIdsOfNames),
            reinterpret_cast<Slot>(&invoke)};
}

}  // namespace tovera
