#include "platform/linux/files/named_entry.h"

#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/files/short_names.h"
#include "platform/linux/text/letter_case.h"

namespace tovera {

std::optional<std::string> entryNamed(const std::string& folder, const std::string& name) {
    const auto path = folder.empty() ? name : folder + '/' + name;
    if (factsOf(path)) return name;
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
