#pragma once

#include "frame/error.h"

namespace tovera {

/// The Automation error that tells a failed file operation's errno.
ErrorNumber fileErrorOf(int systemError);

/// Raises that error, with errno kept as the last error.
[[noreturn]] void raiseFileError(int systemError);

}  // namespace tovera
