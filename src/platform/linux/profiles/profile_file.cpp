#include "platform/linux/profiles/profile_file.h"

#include <cerrno>
#include <utility>

#include "frame/last_error.h"
#include "platform/linux/files/whole_file.h"
#include "platform/linux/profiles/profile_encoding.h"
#include "platform/linux/profiles/profile_text.h"

namespace tovera {
namespace {

template <class Question>
auto ask(const std::string& path, Question question) {
    FileBytes bytes;
    lastError() = readFile(path, bytes);
    return question(ProfileContent(bytes.view()).ansi());
}

template <class Edit>
bool change(const std::string& path, Edit edit) {
    bool refused = false;
    lastError() = changeFile(path, [&](std::string_view bytes) {
        const ProfileContent content(bytes);
        const auto place = edit(content.ansi());
        auto changed = place ? content.with(*place) : std::nullopt;
        refused = place && !changed;
        return changed;
    });
    if (refused) lastError() = EILSEQ;
    return lastError() == 0;
}

}  // namespace

std::optional<std::string> readProfileEntry(const std::string& path, std::string_view section,
                                            std::string_view key) {
    ProfileSearch search(section, key);
    std::optional<std::string> value;
    const auto look = [&](std::string_view lines) {
        const bool goesOn = search.goesOnAfter(lines);
        if (search.value()) value = *search.value();
        return goesOn;
    };
    bool isUnicode = false;
    bool isFirst = true;
    lastError() = readLines(path, [&](std::string_view lines) {
        if (lines.empty()) return true;  // a first line that is longer than a piece
        isUnicode = std::exchange(isFirst, false) && ProfileContent::isUnicode(lines);
        return !isUnicode && look(lines);
    });
    if (isUnicode) ask(path, look);
    return value;
}

std::string readProfileSections(const std::string& path) {
    return ask(path, profileSections);
}

std::string readProfileKeys(const std::string& path, std::string_view section) {
    return ask(path, [&](std::string_view text) { return profileKeys(text, section); });
}

bool writeProfileEntry(const std::string& path, std::string_view section, std::string_view key,
                       std::string_view value) {
    return change(path, [&](std::string_view text) { return editToSet(text, section, key, value); });
}

bool removeProfileEntry(const std::string& path, std::string_view section, std::string_view key) {
    return change(path, [&](std::string_view text) { return editToRemove(text, section, key); });
}

bool removeProfileSection(const std::string& path, std::string_view section) {
    return change(path, [&](std::string_view text) { return editToRemoveSection(text, section); });
}

}  // namespace tovera
