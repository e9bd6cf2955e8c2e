#pragma once

#include <optional>
#include <string>

namespace tovera {

/// The user's home folder.
std::string userHome();

/// The place behind the name of a variable of the desktop's rules: a base folder such as `XDG_CONFIG_HOME`,
/// or one of the user's own folders such as `XDG_DESKTOP_DIR`, as the user has it. Empty for another name.
std::string userFolder(const std::string& variable);

}  // namespace tovera
