#include "platform/linux/files/short_names.h"

#include <algorithm>
#include <cstdint>
#include <fcntl.h>
#include <set>
#include <sys/stat.h>
#include <tuple>
#include <vector>

#include "frame/utf8.h"
#include "platform/linux/files/folder_entries.h"
#include "platform/linux/text/code_pages.h"
#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

constexpr std::size_t baseLength = 8;
constexpr std::size_t extensionLength = 3;
constexpr std::size_t stemLength = 6;
constexpr std::size_t hashedStemLength = 2;
constexpr char16_t lastNumbered = u'4';
constexpr std::u16string_view refused = u"\"*/:<>?\\|";
constexpr std::u16string_view onlyInLongNames = u" +,;=[]";

bool isAllowed(char16_t c) {
    return c > u' ' && c != u'.' && refused.find(c) == std::u16string_view::npos &&
           onlyInLongNames.find(c) == std::u16string_view::npos && ansiCharacter(ansiByte(c)) == c;
}

struct Parts {
    std::u16string base;
    std::u16string extension;
    auto operator<=>(const Parts&) const = default;
};

/// What of a part of a long name goes into the short one: capitals, no blanks and dots, `_` for the rest that
/// isn't allowed.
std::u16string shortened(std::u16string_view part, std::size_t length) {
    std::u16string kept;
    for (const auto c : part) {
        if (c == u' ' || c == u'.') continue;
        kept += isAllowed(c) ? capital(c) : u'_';
        if (kept.size() == length) break;
    }
    return kept;
}

Parts partsOf(std::u16string_view name) {
    name.remove_prefix(std::min(name.find_first_not_of(u". "), name.size()));
    const auto dot = name.rfind(u'.');
    if (dot == std::u16string_view::npos) return {shortened(name, stemLength), {}};
    return {shortened(name.substr(0, dot), stemLength), shortened(name.substr(dot + 1), extensionLength)};
}

std::u16string numbered(std::u16string_view stem, char16_t digit, const Parts& parts) {
    auto name = std::u16string(stem).append(u"~").append(1, digit);
    if (!parts.extension.empty()) name.append(u".").append(parts.extension);
    return name;
}

/// Four hexadecimal digits of a name.
std::u16string hashDigits(std::u16string_view name) {
    unsigned hash = 0x811C9DC5U;
    for (const auto c : name) hash = (hash ^ c) * 0x01000193U;
    hash ^= hash >> 16;
    std::u16string digits;
    for (int shift = 12; shift >= 0; shift -= 4) digits += u"0123456789ABCDEF"[(hash >> shift) & 0xF];
    return digits;
}

struct Entry {
    std::string name;
    std::u16string text;
    statx_timestamp born{};
    std::uint64_t inode = 0;
};

void lookUpAge(const std::string& folder, Entry& entry) {
    struct statx facts {};
    const auto path = folder + '/' + entry.name;
    constexpr auto wanted = STATX_BTIME | STATX_MTIME | STATX_INO;
    if (statx(AT_FDCWD, path.c_str(), AT_SYMLINK_NOFOLLOW, wanted, &facts) != 0) return;
    entry.born = (facts.stx_mask & STATX_BTIME) != 0 ? facts.stx_btime : facts.stx_mtime;
    entry.inode = facts.stx_ino;
}

void sortByAge(const std::string& folder, std::vector<Entry>& entries) {
    for (auto& entry : entries) lookUpAge(folder, entry);
    std::ranges::sort(entries, {}, [](const Entry& entry) {
        return std::tuple(entry.born.tv_sec, entry.born.tv_nsec, entry.inode, std::string_view(entry.name));
    });
}

/// The first free name: four are numbered, the next ones carry digits of the whole name.
std::u16string freeName(const Entry& entry, const Parts& parts, const std::set<std::u16string>& taken) {
    for (char16_t digit = u'1'; digit <= lastNumbered; ++digit) {
        auto name = numbered(parts.base, digit, parts);
        if (!taken.contains(name)) return name;
    }
    const auto stem = parts.base.substr(0, hashedStemLength) + hashDigits(entry.text);
    for (char16_t digit = u'1'; digit <= u'9'; ++digit) {
        auto name = numbered(stem, digit, parts);
        if (!taken.contains(name)) return name;
    }
    return entry.text;
}

}  // namespace

bool isShortName(const std::string& name) {
    if (name == "." || name == "..") return true;
    const auto text = fromUtf8(name);
    const auto dot = text.find(u'.');
    const auto base = std::u16string_view(text).substr(0, dot);
    const auto extension =
        dot == std::u16string::npos ? std::u16string_view(u"-") : std::u16string_view(text).substr(dot + 1);
    const auto fits = [](std::u16string_view part, std::size_t length) {
        return !part.empty() && part.size() <= length && std::ranges::all_of(part, isAllowed);
    };
    return fits(base, baseLength) && fits(extension, extensionLength);
}

std::map<std::string, std::string> shortNames(const std::string& folder) {
    std::map<Parts, std::vector<Entry>> alike;
    std::set<std::u16string> taken;
    for (auto& name : entriesOf(folder)) {
        auto text = fromUtf8(name);
        if (isShortName(name)) {
            taken.insert(capitals(text));
        } else {
            auto& entries = alike[partsOf(text)];
            entries.push_back({std::move(name), std::move(text), {}, 0});
        }
    }
    std::map<std::string, std::string> found;
    for (auto& [parts, entries] : alike) {
        if (entries.size() > 1) sortByAge(folder, entries);
        for (const auto& entry : entries) {
            auto name = freeName(entry, parts, taken);
            found.emplace(entry.name, toUtf8(name));
            taken.insert(std::move(name));
        }
    }
    return found;
}

}  // namespace tovera
