#include "platform/linux/files/long_names.h"

#include <sys/stat.h>

#include "frame/bstr.h"
#include "frame/utf8.h"
#include "platform/linux/files/file_facts.h"
#include "platform/linux/files/named_entry.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/short_names.h"

namespace tovera {
namespace {

constexpr std::u16string_view separators = u"/\\";

bool leadsSomewhere(std::u16string_view path) {
    const auto found = foundHostPath(path);
    return !found.empty() && factsOf(found).has_value();
}

std::string sameEntry(const std::string& /*folder*/, const std::string& entry) {
    return entry;
}

std::string shortNameOf(const std::string& folder, const std::string& entry) {
    if (isShortName(entry)) return entry;
    const auto names = shortNames(folder);
    const auto found = names.find(entry);
    return found == names.end() ? entry : found->second;
}

/// The path with each of its names replaced by a form of the entry that it means.
template <class Form>
std::optional<std::u16string> renamed(std::u16string_view path, Form form) {
    path = beforeNul(path);
    if (!leadsSomewhere(path)) return {};
    const std::size_t drive = path.size() >= 2 && path[1] == u':' ? 2 : 0;
    std::u16string before(path.substr(0, drive));  // in its long form
    std::u16string result = before;
    for (auto rest = path.substr(drive); !rest.empty();) {
        const auto separated = std::min(rest.find_first_not_of(separators), rest.size());
        before.append(rest.substr(0, separated));
        result.append(rest.substr(0, separated));
        rest.remove_prefix(separated);
        const auto name = rest.substr(0, rest.find_first_of(separators));
        rest.remove_prefix(name.size());
        const bool isPlace = name.empty() || name == u"." || name == u"..";
        const auto folder = hostPath(before);
        const auto entry = isPlace ? toUtf8(name) : entryNamed(folder, toUtf8(name));
        if (!entry) return {};
        before.append(fromUtf8(*entry));
        result.append(isPlace ? std::u16string(name) : fromUtf8(form(folder, *entry)));
    }
    return result;
}

}  // namespace

std::optional<std::u16string> longPath(std::u16string_view path) {
    return renamed(path, sameEntry);
}

std::optional<std::u16string> shortPath(std::u16string_view path) {
    return renamed(path, shortNameOf);
}

}  // namespace tovera
