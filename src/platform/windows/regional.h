#pragma once

#include "frame/regional.h"

namespace tovera {

/// The settings of the user as they stand now.
RegionalSettings userRegionalSettings();

}  // namespace tovera
