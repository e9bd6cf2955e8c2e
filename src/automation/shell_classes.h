#pragma once

#include <span>

#include "automation/automation_object.h"

namespace tovera {

/// The classes of the component in the order of their publication.
std::span<const ShellClass> shellClasses();

}  // namespace tovera
