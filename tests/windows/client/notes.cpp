#include "client/notes.h"

namespace tovera::client {

Value Notes::value() {
    auto made = Value::of(VT_DISPATCH);
    made.address()->pdispVal = this;
    AddRef();
    return made;
}

STDMETHODIMP Notes::QueryInterface(REFIID interfaceId, void** found) {
    const bool isDispatch = interfaceId == IID_IUnknown || interfaceId == IID_IDispatch;
    *found = isDispatch ? this : nullptr;
    return isDispatch ? (AddRef(), S_OK) : E_NOINTERFACE;
}

STDMETHODIMP Notes::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    names_.emplace_back(names[0]);
    *ids = static_cast<DISPID>(names_.size());
    return S_OK;
}

STDMETHODIMP Notes::Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT* result,
                           EXCEPINFO* exception, UINT*) {
    if (id == DISPID_VALUE) {
        result->vt = VT_BSTR;
        result->bstrVal = SysAllocString(L"notes");
        return S_OK;
    }
    const auto& name = names_.at(static_cast<std::size_t>(id) - 1);
    auto call = name;
    for (auto i = parameters->cArgs; i-- > 0;) {
        Value shown;
        VariantChangeType(shown.address(), &parameters->rgvarg[i], 0, VT_BSTR);
        call += L" <" + shown.text() + L">" + (parameters->rgvarg[i].vt & VT_BYREF ? L"&" : L"");
    }
    calls_.push_back(call);
    if (name == failing) {
        exception->scode = static_cast<SCODE>(0x800A1111);
        exception->bstrDescription = SysAllocString(L"en panne");
        return DISP_E_EXCEPTION;
    }
    if (!result) return S_OK;
    if (name == L"Type") {
        result->vt = VT_I4;
        result->lVal = 1;
        return S_OK;
    }
    result->vt = VT_DISPATCH;
    return QueryInterface(IID_IDispatch, reinterpret_cast<void**>(&result->pdispVal));
}

}  // namespace tovera::client
