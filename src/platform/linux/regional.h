#pragma once

#include "frame/regional.h"

namespace tovera {

/// The settings of the user's locale, as the environment names it; those of the C locale when it names none
/// that is installed.
RegionalSettings userRegionalSettings();

}  // namespace tovera
