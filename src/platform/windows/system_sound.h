#pragma once

#include "platform/windows/system.h"

// The system's own declarations of sound, which need the others, and one that they leave out.

#include <mmsystem.h>

extern "C" BOOL WINAPI mciExecute(LPCSTR command);
