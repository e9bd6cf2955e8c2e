#pragma once

#include <array>

#include "automation/automation_object.h"

namespace tovera {

/// The standard slots of a dual interface: three of `IUnknown` and four of `IDispatch`.
inline constexpr std::size_t standardSlots = 7;

/// The first entries of the slots of every class.
std::array<Slot, standardSlots> standardSlotFunctions();

}  // namespace tovera
