#pragma once

// The system's own declarations. Which of them are left out is set by the build.

// clang-format off: the first one declares what the others need
#include <windows.h>
#include <oleauto.h>
#include <olectl.h>
// clang-format on
