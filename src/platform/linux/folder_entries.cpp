#include "platform/linux/folder_entries.h"

#include <algorithm>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <sys/stat.h>

#include "frame/utf8.h"
#include "platform/linux/letter_case.h"
#include "platform/linux/short_names.h"

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

std::optional<std::string> entryNamed(const std::string& folder, const std::string& name) {
    struct stat facts {};
    const auto path = folder.empty() ? name : folder + '/' + name;
    if (lstat(path.c_str(), &facts) == 0) return name;
    const auto wanted = capitals(fromUtf8(name));
    for (auto& entry : entriesOf(folder)) {
        if (capitals(fromUtf8(entry)) == wanted) return std::move(entry);
    }
    if (name.find('~') == std::string::npos) return {};
    for (auto& [entry, shortName] : shortNames(folder)) {
        if (fromUtf8(shortName) == wanted) return entry;
    }
    return {};
}

}  // namespace tovera
