#pragma once

#include "frame/services.h"

namespace tovera {

/// Starts a program and returns its process number; error 53 when there is no such file, else 5.
R8 launchProgram(const Bstr& commandLine, WindowStyle style);

}  // namespace tovera
