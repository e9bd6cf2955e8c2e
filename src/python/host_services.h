#pragma once

#include "python/interpreter.h"

namespace tovera::python {

/// The host that all objects are made by: message boxes, the pump of a wait and objects by ProgID are what
/// the user has set, else the system's.
tovera_host* hostOfPython();

}  // namespace tovera::python
