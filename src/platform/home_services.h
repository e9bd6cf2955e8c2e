#pragma once

#include "frame/services.h"

namespace tovera {

/// The services of this home.
Services& homeServices();

}  // namespace tovera
