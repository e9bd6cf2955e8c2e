#pragma once

#include "frame/string_array.h"
#include "platform/windows/system.h"

namespace tovera {

/// The array in the frame's form. A null address, or one without elements' memory, is an array that hasn't
/// been dimensioned. Elements may be `VARIANT`s that hold texts, as script hosts have them; any other type
/// of element and a second dimension raise error 13.
StringArray arrayOf(SAFEARRAY* array, VARTYPE elements);

/// A new array with such elements, null for one that hasn't been dimensioned.
SAFEARRAY* makeArray(const StringArray& array, VARTYPE elements);

/// Whether both have elements within the same bounds, so that one can take over those of the other.
bool sameBounds(const SAFEARRAY& a, const SAFEARRAY& b);
void swapElements(SAFEARRAY& a, SAFEARRAY& b) noexcept;

}  // namespace tovera
