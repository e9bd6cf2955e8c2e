#pragma once

#include <string>

#include "frame/services.h"

namespace tovera {

/// What this home knows of the component and of the screen.
ComponentFacts componentFacts();

/// The folder that members keep files of the component in: its own, where that lies below this home folder,
/// belongs to the user and can't be written by others; else the system folder of the user's drive C:, which
/// is his alone.
std::u16string componentFolder(const std::string& ownFolder, const std::string& homeFolder);

}  // namespace tovera
