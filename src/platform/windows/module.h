#pragma once

#include <string>

#include "platform/windows/system.h"

namespace tovera {

/// The file that this code was loaded from: the component, or a program that has it built in.
HMODULE ownModule();
std::wstring ownFileName();

}  // namespace tovera
