#include "client/form.h"

#include <iterator>

namespace tovera::client {

STDMETHODIMP Form::QueryInterface(REFIID interfaceId, void** found) {
    constexpr IID control{0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};
    const bool isDispatch = interfaceId == IID_IUnknown || interfaceId == IID_IDispatch ||
                            (interfaceId == control && controls_.empty());
    *found = isDispatch                        ? static_cast<void*>(dispatch())
             : interfaceId == IID_IEnumVARIANT ? static_cast<IEnumVARIANT*>(this)
                                               : nullptr;
    return *found ? (AddRef(), S_OK) : E_NOINTERFACE;
}

STDMETHODIMP Form::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    const auto member = members_.find(names[0]);
    if (member == members_.end()) return DISP_E_UNKNOWNNAME;
    *ids = static_cast<DISPID>(std::distance(members_.begin(), member)) + 1;
    return S_OK;
}

STDMETHODIMP Form::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO* exception, UINT*) {
    if (id == DISPID_NEWENUM) {
        if (controls_.empty()) return DISP_E_MEMBERNOTFOUND;
        next_ = 0;
        result->vt = VT_UNKNOWN;
        return QueryInterface(IID_IUnknown, reinterpret_cast<void**>(&result->punkVal));
    }
    auto& text = std::next(members_.begin(), id == DISPID_VALUE ? 0 : id - 1)->second;
    if (kind & DISPATCH_PROPERTYPUT) return text = parameters->rgvarg[0].bstrVal, S_OK;
    if (text == raising) return exception->wCode = 343, DISP_E_EXCEPTION;
    if (text == nowhere) return result->vt = VT_BYREF | VT_VARIANT, S_OK;
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(text.c_str());
    return S_OK;
}

STDMETHODIMP Form::Next(ULONG, VARIANT* element, ULONG*) {
    if (next_ == controls_.size()) return S_FALSE;
    element->vt = VT_DISPATCH;
    element->pdispVal = controls_[next_++]->dispatch();
    element->pdispVal->AddRef();
    return S_OK;
}

}  // namespace tovera::client
