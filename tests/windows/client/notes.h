#pragma once

#include <vector>

#include "client/com.h"

namespace tovera::client {

/// All objects of a Notes session in one, which hands itself out and notes the calls on it. Its default value
/// is "notes".
class Notes : public IDispatch {
  public:
    virtual ~Notes() = default;

    /// A `VARIANT` that holds it.
    Value value();
    /// The calls, each as its member and its arguments as texts.
    const std::vector<std::wstring>& calls() const { return calls_; }
    /// References that are still held by others.
    ULONG references() const { return references_; }
    /// A member that fails.
    std::wstring failing;

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override { return --references_; }
    STDMETHODIMP GetTypeInfoCount(UINT*) override { return E_NOTIMPL; }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override;

  private:
    std::vector<std::wstring> names_;
    std::vector<std::wstring> calls_;
    ULONG references_ = 0;
};

}  // namespace tovera::client
