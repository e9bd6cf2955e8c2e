#pragma once

#include <string>

namespace tovera {

/// The user's home folder.
std::string homeFolder();

/// The name of the user that this process acts for; of one without an entry what the session says.
std::string userName();

/// Where this system keeps what belongs to the user: `tovera` in the user's data folder, which need not exist
/// yet.
std::string dataFolder();

}  // namespace tovera
