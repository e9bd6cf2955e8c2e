#pragma once

#include "platform/windows/system.h"

// The system's own declarations of the network, which need the others.

// clang-format off
#include <winsock.h>
#include <nb30.h>
#include <lm.h>
#include <iphlpapi.h>
#include <urlmon.h>
// clang-format on
