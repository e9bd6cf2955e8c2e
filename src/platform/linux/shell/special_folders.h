#pragma once

#include <optional>
#include <string>

#include "frame/values.h"

namespace tovera {

/// A special folder of the shell: its path on this system, empty for a place that has none.
struct SpecialFolder {
    std::string path;
};

/// The folder of a number (`CSIDL`), with flags or without. Folders that are this layer's or the base
/// folders' of the user are made where they are missing, all others only with the flag that asks for it.
/// Nothing for an unknown number.
std::optional<SpecialFolder> specialFolder(I4 number);

}  // namespace tovera
