#pragma once

#include <atomic>

#include "automation/automation_object.h"

namespace tovera {

/// Makes the objects of one class. A factory lives as long as the component is loaded, and each reference to
/// it keeps the component loaded.
class ClassFactory : public IClassFactory {
  public:
    explicit ClassFactory(const PublishedClass& publishedClass) : publishedClass_(publishedClass) {}

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID interfaceId, void** created) override;
    STDMETHODIMP LockServer(BOOL lock) override;

  private:
    const PublishedClass& publishedClass_;
    std::atomic<ULONG> references_ = 0;
};

}  // namespace tovera
