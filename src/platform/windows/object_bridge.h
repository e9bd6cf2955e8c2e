#pragma once

#include "frame/object.h"
#include "platform/windows/com_pointer.h"

// Objects cross the border in both directions with their identity kept: one of the component's own comes
// back as itself, and a foreign one goes out again as itself.
namespace tovera {

/// An object of the frame that other programs reach through this `IDispatch`, of which it keeps a reference.
class DispatchSource {
  public:
    virtual IDispatch* dispatch() noexcept = 0;

  protected:
    ~DispatchSource() = default;
};

/// The interface of objects of this very copy of the component alone, by `ownObjectId`: it leads to the
/// object of the frame.
struct OwnObject : IUnknown {
    virtual Object* ownObject() noexcept = 0;
};
const IID& ownObjectId();

/// The object of this copy of the component behind an interface; null for one of others.
Object* ownObjectOf(const ComPointer<IUnknown>& any);

/// The interface of an object, with a reference that the caller takes over: nothing for nothing.
IDispatch* dispatchOf(const ObjectRef& object);

}  // namespace tovera
