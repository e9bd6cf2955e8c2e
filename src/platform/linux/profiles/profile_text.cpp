#include "platform/linux/profiles/profile_text.h"

#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

constexpr char commentMark = ';';
constexpr std::string_view usualLineEnd = "\r\n";

/// Where a section stands in a text, and one of its entries.
struct Place {
    bool sectionFound = false;
    const char* begin = nullptr;  ///< of its header
    const char* end = nullptr;    ///< of its last line
    const char* rear = nullptr;   ///< behind its last line that isn't blank: the place of a new entry
    std::string_view rearLineEnd;
    std::optional<ProfileLine> entry;
};

Place findPlace(std::string_view text, const SoughtName& section, const SoughtName& key) {
    Place place;
    place.sectionFound = section.empty();
    place.begin = place.end = place.rear = text.data();
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto line = lines.next();
        if (const auto header = line.header()) {
            if (place.sectionFound) return place;
            if (!section.matches(*header)) continue;
            place.sectionFound = true;
            place.begin = line.start();
        } else if (!place.sectionFound) {
            continue;
        } else if (!place.entry && key.canBeKey() && line.isEntry(key)) {
            place.entry = line;
        }
        place.end = line.next();
        if (line.isBlank()) continue;
        place.rear = line.next();
        place.rearLineEnd = line.lineEnd();
    }
    return place;
}

std::string_view firstLineEnd(std::string_view text) {
    if (text.empty()) return usualLineEnd;
    const auto found = ProfileLines(text).next().lineEnd();
    return found.empty() ? usualLineEnd : found;
}

std::string_view lastLineEnd(std::string_view text) {
    const auto last = text.find_last_not_of("\r\n");
    return text.substr(last == std::string_view::npos ? 0 : last + 1);
}

std::size_t offsetIn(std::string_view text, const char* p) {
    return static_cast<std::size_t>(p - text.data());
}

std::string lineOf(std::string_view key, std::string_view value, std::string_view lineEnd) {
    return std::string(key).append("=").append(value).append(lineEnd);
}

std::optional<ProfileEdit> editOfLine(std::string_view text, const ProfileLine& line,
                                      std::string_view value) {
    const auto old = line.value();
    if (!old) {
        const auto content = line.content();
        return ProfileEdit{offsetIn(text, content.data() + content.size()), 0, '=' + std::string(value)};
    }
    if (*old == withoutBlanks(value)) return {};
    return ProfileEdit{offsetIn(text, old->data()), old->size(), std::string(value)};
}

ProfileEdit newEntry(std::string_view text, const Place& place, std::string_view key,
                     std::string_view value) {
    const auto lineEnd = place.rearLineEnd.empty() ? firstLineEnd(text) : place.rearLineEnd;
    const auto position = offsetIn(text, place.rear);
    const bool lineIsOpen = position > 0 && place.rearLineEnd.empty();
    auto line = lineOf(key, value, lineEnd);
    return {position, 0, lineIsOpen ? std::string(lineEnd) + line : line};
}

ProfileEdit newSection(std::string_view text, std::string_view section, std::string_view key,
                       std::string_view value) {
    const auto lineEnd = firstLineEnd(text);
    ProfileEdit edit{text.size(), 0, {}};
    if (!text.empty() && lastLineEnd(text).empty()) edit.replacement.append(lineEnd);
    edit.replacement.append("[").append(section).append("]").append(lineEnd);
    edit.replacement.append(lineOf(key, value, lineEnd));
    return edit;
}

}  // namespace

SoughtName::SoughtName(std::string_view name) : table_(ansiCapitals()), capitals_(withoutBlanks(name)) {
    for (auto& c : capitals_) c = table_[static_cast<std::uint8_t>(c)];
    canBeKey_ = capitals_.find('=') == std::string::npos;
}

ProfileSearch::ProfileSearch(std::string_view section, std::string_view key)
    : section_(section), key_(key), inSection_(section_.empty()) {}

bool ProfileSearch::goesOnAfter(std::string_view text) {
    if (!key_.canBeKey()) return false;
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto line = lines.next();
        if (const auto header = line.header()) {
            if (inSection_) return false;
            inSection_ = section_.matches(*header);
        } else if (inSection_ && line.isEntry(key_)) {
            value_ = line.value();
            return false;
        }
    }
    return true;
}

std::string profileSections(std::string_view text) {
    std::string names;
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto header = lines.next().header();
        if (header && !header->empty()) names.append(*header).append(1, '\0');
    }
    return names;
}

std::string profileKeys(std::string_view text, std::string_view section) {
    const SoughtName sought(section);
    std::string names;
    bool inSection = sought.empty();
    for (ProfileLines lines(text); !lines.atEnd();) {
        const auto line = lines.next();
        if (const auto header = line.header()) {
            if (inSection) break;
            inSection = sought.matches(*header);
        } else if (inSection && line.value()) {
            const auto key = line.key();
            if (!key.empty() && !key.starts_with(commentMark)) names.append(key).append(1, '\0');
        }
    }
    return names;
}

std::optional<ProfileEdit> editToSet(std::string_view text, std::string_view section, std::string_view key,
                                     std::string_view value) {
    while (!value.empty() && isProfileBlank(value.front())) value.remove_prefix(1);
    key = withoutBlanks(key);
    const auto place = findPlace(text, SoughtName(section), SoughtName(key));
    if (place.entry) return editOfLine(text, *place.entry, value);
    if (place.sectionFound) return newEntry(text, place, key, value);
    return newSection(text, withoutBlanks(section), key, value);
}

std::optional<ProfileEdit> editToRemove(std::string_view text, std::string_view section,
                                        std::string_view key) {
    const auto place = findPlace(text, SoughtName(section), SoughtName(key));
    if (!place.entry) return {};
    const auto position = offsetIn(text, place.entry->start());
    return ProfileEdit{position, offsetIn(text, place.entry->next()) - position, {}};
}

std::optional<ProfileEdit> editToRemoveSection(std::string_view text, std::string_view section) {
    const SoughtName sought(section);
    const auto place = findPlace(text, sought, sought);
    if (place.begin == place.end) return {};
    const auto position = offsetIn(text, place.begin);
    return ProfileEdit{position, offsetIn(text, place.end) - position, {}};
}

}  // namespace tovera
