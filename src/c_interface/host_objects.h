#pragma once

#include "c_interface/tovera.h"
#include "frame/object_ref.h"

namespace tovera::c {

/// Takes over the object that a function of the host has given, and the reference that came with it.
ObjectRef takeOver(tovera_object* handle);

}  // namespace tovera::c
