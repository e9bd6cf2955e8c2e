#pragma once

#include <string_view>

#include "frame/values.h"

namespace tovera {

/// Starts what a command line names and returns its process number, 0 where another process starts it.
/// Programs of Windows that open a page of the settings lead to the page of the desktop that runs. Error 53
/// for a program that isn't found, 5 for one that can't be started.
R8 launchCommand(std::string_view commandLine);

}  // namespace tovera
