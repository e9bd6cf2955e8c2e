#pragma once

#include "platform/windows/system.h"

// The system's own declarations of the shell, which need the others.

#include <shellapi.h>
#include <shlobj.h>
