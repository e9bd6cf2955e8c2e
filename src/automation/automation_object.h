#pragma once

#include "frame/component_object.h"
#include "platform/windows/object_bridge.h"
#include "platform/windows/system.h"

namespace tovera {

using Slot = void (*)();

/// What the shell needs to know of a class: its identities, and the slots of its dual interface.
struct PublishedClass {
    const ClassDescription& (*description)();
    const Slot* slots;
    /// A new object with one reference.
    IDispatch* (*create)();
    IID interfaceId;
    CLSID classId;
};

class AutomationObject;

/// A dual interface as callers see it: an address that leads to the slots.
struct DualInterface {
    const Slot* slots;
    AutomationObject* object;
};

/// An object of the component as Automation clients reach it.
class AutomationObject : public ComponentObject,
                         public DispatchSource,
                         public OwnObject,
                         public ISupportErrorInfo,
                         public IProvideClassInfo {
  public:
    explicit AutomationObject(const PublishedClass& publishedClass);

    const PublishedClass& publishedClass() const { return publishedClass_; }
    IDispatch* dispatch() noexcept override { return reinterpret_cast<IDispatch*>(&dual_); }
    using ComponentObject::instance;

    Object* ownObject() noexcept override { return this; }

    STDMETHODIMP QueryInterface(REFIID interfaceId, void** found) override;
    STDMETHODIMP_(ULONG) AddRef() override;
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID interfaceId) override;
    STDMETHODIMP GetClassInfo(ITypeInfo** found) override;

  protected:
    ~AutomationObject() override;

  private:
    const PublishedClass& publishedClass_;
    DualInterface dual_;
};

}  // namespace tovera
