#pragma once

#include "frame/bstr.h"
#include "platform/windows/system.h"

namespace tovera {

/// A text of the system's allocator, with a null address for a null one.
BSTR allocateText(const Bstr& text);
Bstr textOf(BSTR text);

}  // namespace tovera
