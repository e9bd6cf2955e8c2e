#pragma once

#include <set>
#include <string>
#include <string_view>

namespace tovera {

/// What the file server's settings say about shares of users.
struct SambaSettings {
    std::string userShareFolder;  ///< where they are kept; empty for nowhere
    bool allowsUserShares = false;
    std::set<std::u16string> sections;  ///< the fixed shares, in capitals
};

/// Reads what `testparm` prints of all settings.
SambaSettings sambaSettingsIn(std::string_view text);

}  // namespace tovera
