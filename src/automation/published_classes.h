#pragma once

#include "automation/class_factory.h"

namespace tovera {

/// The factory of a class of the component, or null. It is made when it is first asked for: at a creation the
/// other classes cost nothing.
ClassFactory* findFactory(const CLSID& classId);

}  // namespace tovera
