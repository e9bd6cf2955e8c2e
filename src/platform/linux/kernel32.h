#pragma once

#include "platform/kernel32.h"

namespace tovera {

class LinuxKernel32 : public Kernel32 {};

}  // namespace tovera
