#pragma once

#include "platform/windows/system.h"

namespace tovera {

/// Registers classes, interfaces and type library for all users, or for the current one when there are no
/// rights for all. A registration that fails leaves the registry as it was.
HRESULT registerComponent();

/// Removes exactly what a registration writes, of this user and, with the rights for it, of all users. What
/// the component of the other bitness needs stays while that is registered.
HRESULT unregisterComponent();

}  // namespace tovera
