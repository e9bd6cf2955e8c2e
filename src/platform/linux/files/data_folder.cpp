#include "platform/linux/files/data_folder.h"

#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

namespace tovera {

std::string homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home == '/') return home;
    const auto* user = getpwuid(getuid());
    return user ? user->pw_dir : "/";
}

std::string dataFolder() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data == '/') {
        return std::string(data) + "/tovera";
    }
    return homeFolder() + "/.local/share/tovera";
}

}  // namespace tovera
