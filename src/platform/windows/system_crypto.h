#pragma once

#include "platform/windows/system.h"

// The system's own declarations of the cryptographic provider, which need the others.

#include <wincrypt.h>
