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
    lastError() = changeFile(path, [&](std::string_view bytes) -> std::optional<std::string> {
        const ProfileContent content(bytes);
        const auto edits = edit(content.ansi());
        if (edits.empty()) return {};
        auto changed = content.with(edits);
        refused = !changed;
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

bool writeProfileEntries(const std::string& path, std::span<const EntryWrite> writes) {
    return change(path, [&](std::string_view text) { return editsFor(text, writes); });
}

bool writeProfileEntry(const std::string& path, std::string_view section, std::string_view key,
                       std::string_view value) {
    const EntryWrite write{std::string(section), std::string(key), std::string(value)};
    return writeProfileEntries(path, {&write, 1});
}

bool removeProfileEntry(const std::string& path, std::string_view section, std::string_view key) {
    const EntryWrite removal{std::string(section), std::string(key), std::nullopt};
    return writeProfileEntries(path, {&removal, 1});
}

bool removeProfileSection(const std::string& path, std::string_view section) {
    return change(path, [&](std::string_view text) { return editsToRemoveSection(text, section); });
}

}  // namespace tovera
