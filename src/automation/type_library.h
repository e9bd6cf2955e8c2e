#pragma once

#include "platform/windows/com_pointer.h"

namespace tovera {

/// The description of an interface or class in the embedded type library, which is loaded at the first use.
HRESULT findTypeInfo(const GUID& id, ITypeInfo** found) noexcept;

/// Lets the type library go, until it is needed again.
void releaseTypeLibrary() noexcept;

}  // namespace tovera
