#include "platform/linux/files/folder_entries.h"

#include <algorithm>
#include <dirent.h>
#include <memory>

namespace tovera {

std::vector<std::string> entriesOf(const std::string& folder) {
    using Folder = std::unique_ptr<DIR, decltype([](DIR* opened) { closedir(opened); })>;
    std::vector<std::string> names;
    const Folder opened(opendir(folder.empty() ? "." : folder.c_str()));
    if (!opened) return names;
    while (const auto* entry = readdir(opened.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    std::ranges::sort(names);
    return names;
}

}  // namespace tovera
