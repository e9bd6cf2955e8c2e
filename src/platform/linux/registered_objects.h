#pragma once

#include "platform/object_registration.h"

namespace tovera {

/// The factory that a host has registered for a ProgID; an empty one where there is none.
ObjectFactory registeredFactory(std::u16string_view progId);

}  // namespace tovera
