#include "client/form.h"

#include <iterator>

namespace tovera::client {
namespace {

/// Of every control of a form.
constexpr IID controlInterface{0xFCFB3D25, 0xA0FA, 0x1068, {0xA7, 0x38, 0x08, 0x00, 0x2B, 0x33, 0x71, 0xB5}};

class Controls : public IEnumVARIANT {
  public:
    explicit Controls(const std::vector<Form*>& controls) : left_(controls) {}
    virtual ~Controls() = default;

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) override {
        if (interfaceId != IID_IUnknown && interfaceId != IID_IEnumVARIANT)
            return *found = nullptr, E_NOINTERFACE;
        AddRef();
        return *found = static_cast<IEnumVARIANT*>(this), S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override {
        const ULONG left = --references_;
        if (!left) delete this;
        return left;
    }
    STDMETHODIMP Next(ULONG, VARIANT* elements, ULONG* fetched) override {
        if (fetched) *fetched = !left_.empty();
        if (left_.empty()) return S_FALSE;
        elements->vt = VT_DISPATCH;
        elements->pdispVal = left_.front();
        elements->pdispVal->AddRef();
        left_.erase(left_.begin());
        return S_OK;
    }
    STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

  private:
    std::vector<Form*> left_;
    ULONG references_ = 1;
};

}  // namespace

STDMETHODIMP Form::QueryInterface(REFIID interfaceId, void** found) {
    const bool known = interfaceId == IID_IUnknown || interfaceId == IID_IDispatch ||
                       (interfaceId == controlInterface && controls_.empty());
    *found = known ? static_cast<IDispatch*>(this) : nullptr;
    if (known) AddRef();
    return known ? S_OK : E_NOINTERFACE;
}

STDMETHODIMP Form::GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) {
    const auto member = members_.find(names[0]);
    if (member == members_.end()) return DISP_E_UNKNOWNNAME;
    *ids = static_cast<DISPID>(std::distance(members_.begin(), member)) + 1;
    return S_OK;
}

STDMETHODIMP Form::Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                          EXCEPINFO*, UINT*) {
    if (id == DISPID_NEWENUM) {
        if (controls_.empty()) return DISP_E_MEMBERNOTFOUND;
        result->vt = VT_UNKNOWN;
        result->punkVal = new Controls(controls_);
        return S_OK;
    }
    auto& text = std::next(members_.begin(), id - 1)->second;
    if (kind & DISPATCH_PROPERTYPUT) return text = parameters->rgvarg[0].bstrVal, S_OK;
    result->vt = VT_BSTR;
    result->bstrVal = SysAllocString(text.c_str());
    return S_OK;
}

}  // namespace tovera::client
