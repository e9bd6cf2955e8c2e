#pragma once

#include <map>
#include <vector>

#include "client/com.h"

namespace tovera::client {

/// A form or a control as an application hands it in: text members, which are found by name, and for a form
/// its controls, which it enumerates, once at a time. The first member stands for the object.
class Form : public IDispatch, public IEnumVARIANT {
  public:
    using Members = std::map<std::wstring, std::wstring>;

    explicit Form(Members members, std::vector<Form*> controls = {})
        : members_(std::move(members)), controls_(std::move(controls)) {}
    virtual ~Form() = default;

    /// The text of a member that raises an exception when it is read, as `Index` does outside an array.
    static constexpr const wchar_t* raising = L"\uFFFF";
    /// The text of a member that gives a reference to nowhere.
    static constexpr const wchar_t* nowhere = L"\uFFFE";

    IDispatch* dispatch() { return this; }
    std::wstring text(const std::wstring& member) const { return members_.at(member); }
    /// References that are still held by others.
    ULONG references() const { return references_; }

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override;
    STDMETHODIMP Next(ULONG, VARIANT* element, ULONG*) override;
    STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

  private:
    Members members_;
    std::vector<Form*> controls_;
    std::size_t next_ = 0;
    ULONG references_ = 0;
};

}  // namespace tovera::client
