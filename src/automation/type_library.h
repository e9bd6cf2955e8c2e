#pragma once

#include "platform/windows/com_pointer.h"

namespace tovera {

/// The description of an interface or class in the embedded type library, which is loaded for nothing else.
HRESULT findTypeInfo(const GUID& id, ITypeInfo** found) noexcept;

}  // namespace tovera
