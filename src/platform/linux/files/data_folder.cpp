#include "platform/linux/files/data_folder.h"

#include <cerrno>
#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>
#include <vector>

namespace tovera {

std::string homeFolder() {
    if (const char* home = std::getenv("HOME"); home && *home == '/') return home;
    const auto* user = getpwuid(getuid());
    return user ? user->pw_dir : "/";
}

std::string userName() {
    std::vector<char> room(1024);
    passwd entry{};
    passwd* found = nullptr;
    while (getpwuid_r(geteuid(), &entry, room.data(), room.size(), &found) == ERANGE)
        room.resize(2 * room.size());
    if (found) return found->pw_name;
    const char* const user = std::getenv("USER");
    return user ? user : "";
}

std::string dataFolder() {
    if (const char* data = std::getenv("XDG_DATA_HOME"); data && *data == '/') {
        return std::string(data) + "/tovera";
    }
    return homeFolder() + "/.local/share/tovera";
}

}  // namespace tovera
