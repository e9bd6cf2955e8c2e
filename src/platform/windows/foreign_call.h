#pragma once

#include <span>

#include "frame/object.h"
#include "platform/windows/variants.h"

namespace tovera {

/// Stores in a variable what a member has left in its copy.
using TakeBack = void (*)(const Reference& variable, const VARIANT& left);

/// Calls a member of another program's object. What it changes in variables that are passed by reference is
/// taken back, after a failure as well. A failure is raised as the object told it.
SystemVariant callForeign(IDispatch& object, DISPID member, CallKind kind, std::span<const Variant> arguments,
                          TakeBack takeBack);

}  // namespace tovera
