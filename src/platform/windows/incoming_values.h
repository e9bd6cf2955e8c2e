#pragma once

#include "frame/object_ref.h"
#include "frame/variant.h"
#include "platform/windows/system.h"

// Values and objects of other programs in the frame's form. An object stands for calls that bring values in,
// so that both belong together.
namespace tovera {

/// How many references may stand behind each other; some lead back to themselves.
inline constexpr int longestChain = 16;

/// The value in a `VARIANT`, or behind it when it refers to a variable, with its tag. A type that the frame
/// hasn't got comes as the number that holds it. One that is no number and a reference that leads nowhere
/// raise error 13.
Variant valueOf(const VARIANT& variant, int chain = longestChain);

/// The object behind an interface: nothing for nothing, error 13 for one that isn't late-bound.
ObjectRef objectOf(IUnknown* unknown);

}  // namespace tovera
