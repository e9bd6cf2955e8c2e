#include "platform/linux/shell/user_folders.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <pwd.h>
#include <string_view>
#include <unistd.h>

#include "platform/linux/files/whole_file.h"

namespace tovera {
namespace {

struct FolderName {
    std::string_view variable, name;
};

/// Below the home folder, where the user hasn't said otherwise.
constexpr std::array baseFolders{
    FolderName{"XDG_CONFIG_HOME", ".config"},
    FolderName{"XDG_DATA_HOME", ".local/share"},
    FolderName{"XDG_CACHE_HOME", ".cache"},
};
constexpr std::array ownFolders{
    FolderName{"XDG_DESKTOP_DIR", "Desktop"},     FolderName{"XDG_DOCUMENTS_DIR", "Documents"},
    FolderName{"XDG_DOWNLOAD_DIR", "Downloads"},  FolderName{"XDG_MUSIC_DIR", "Music"},
    FolderName{"XDG_PICTURES_DIR", "Pictures"},   FolderName{"XDG_PUBLICSHARE_DIR", "Public"},
    FolderName{"XDG_TEMPLATES_DIR", "Templates"}, FolderName{"XDG_VIDEOS_DIR", "Videos"},
};

/// The value of a line `NAME="$HOME/folder"` or `NAME="/folder"`; empty for any other.
std::string valueIn(std::string_view line, std::string_view name, const std::string& home) {
    const auto first = line.find_first_not_of(" \t");
    if (first == std::string_view::npos || !line.substr(first).starts_with(name)) return {};
    line.remove_prefix(first + name.size());
    if (!line.starts_with("=\"")) return {};
    line.remove_prefix(2);
    std::string value;
    for (std::size_t i = 0; i < line.size() && line[i] != '"'; ++i) {
        if (line[i] == '\\' && i + 1 < line.size()) ++i;
        value += line[i];
    }
    constexpr std::string_view homeVariable = "$HOME";
    if (value.starts_with(homeVariable)) value.replace(0, homeVariable.size(), home);
    while (value.size() > 1 && value.ends_with('/')) value.pop_back();
    return value.starts_with('/') ? value : std::string();
}

std::string ownFolder(const FolderName& folder) {
    const auto home = userHome();
    FileBytes bytes;
    std::string found;
    if (readFile(userFolder("XDG_CONFIG_HOME") + "/user-dirs.dirs", bytes) == 0) {
        auto rest = bytes.view();
        while (!rest.empty()) {
            const auto end = std::min(rest.find('\n'), rest.size());
            const auto value = valueIn(rest.substr(0, end), folder.variable, home);
            if (!value.empty()) found = value;
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
    return found.empty() ? home + '/' + std::string(folder.name) : found;
}

}  // namespace

std::string userHome() {
    if (const char* const home = std::getenv("HOME"); home && *home == '/') return home;
    const auto* const user = getpwuid(getuid());
    return user ? user->pw_dir : "/";
}

std::string userFolder(const std::string& variable) {
    const auto* const base = std::ranges::find(baseFolders, variable, &FolderName::variable);
    if (base != baseFolders.end()) {
        const char* const set = std::getenv(variable.c_str());
        return set && *set == '/' ? set : userHome() + '/' + std::string(base->name);
    }
    const auto* const own = std::ranges::find(ownFolders, variable, &FolderName::variable);
    return own == ownFolders.end() ? std::string() : ownFolder(*own);
}

}  // namespace tovera
