#pragma once

#include <iosfwd>

#include "platform/platform.h"

namespace tovera::cli {

/// Stays as long as what the steps have started is to be heard or waits for the user, and says so on a
/// terminal.
void waitForSound(const Platform& platform, std::ostream& err);
void waitForDialogs(std::ostream& err);

}  // namespace tovera::cli
