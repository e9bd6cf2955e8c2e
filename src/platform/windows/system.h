#pragma once

// The system's own declarations, the first of which the others need. What is left out is set by the build.

// clang-format off
#include <windows.h>
#include <oleauto.h>
#include <olectl.h>
// clang-format on

// A member of a class has this name.
#undef GetUserName
