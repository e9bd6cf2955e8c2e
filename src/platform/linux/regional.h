#pragma once

#include "frame/regional.h"

namespace tovera {

/// The settings of the user's locale, as the environment names it: for numbers and for dates each by its own
/// category, and those of the C locale for one that isn't installed.
RegionalSettings userRegionalSettings();

}  // namespace tovera
