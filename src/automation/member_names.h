#pragma once

#include <span>

#include "frame/class_table.h"
#include "platform/windows/system.h"

namespace tovera {

/// The numbers of a member's name and, behind it, of names of its parameters, which count from 0. Names match
/// without regard to case. Each name that isn't known gets DISPID_UNKNOWN.
HRESULT findNames(const ClassDescription& description, std::span<LPOLESTR> names,
                  std::span<DISPID> ids) noexcept;

}  // namespace tovera
