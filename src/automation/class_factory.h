#pragma once

#include "automation/automation_object.h"

namespace tovera {

/// Makes the objects of one class. A factory lives as long as the component is loaded and isn't counted: who
/// wants the component to stay while holding nothing but a factory locks it.
class ClassFactory : public IClassFactory {
  public:
    explicit ClassFactory(const PublishedClass& publishedClass) : publishedClass_(publishedClass) {}

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) override;
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID interfaceId, void** created) override;
    STDMETHODIMP LockServer(BOOL lock) override;

  private:
    const PublishedClass& publishedClass_;
};

}  // namespace tovera
