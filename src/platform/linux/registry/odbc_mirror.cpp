#include "platform/linux/registry/odbc_mirror.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <pwd.h>
#include <unistd.h>

#include "frame/ascii_case.h"
#include "frame/utf8.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/files/whole_file.h"
#include "platform/linux/profiles/profile_text.h"
#include "platform/linux/registry/registry_status.h"
#include "platform/linux/text/code_pages.h"
#include "platform/registry.h"

namespace tovera {
namespace {

constexpr std::string_view listOfSources = "ODBC Data Sources";
constexpr std::string_view databaseKey = "Database";
constexpr std::string_view accessLibrary = "odbcjt32.dll";

/// The file that unixODBC reads for the user.
std::string userFile() {
    if (const char* named = std::getenv("ODBCINI"); named && *named) return named;
    const auto* user = getpwuid(getuid());
    return std::string(user && user->pw_dir ? user->pw_dir : "/home") + "/.odbc.ini";
}

/// The file is UTF-8.
std::string lineText(std::string_view ansi) {
    return toUtf8(fromAnsi1252(ansi.substr(0, ansi.find('\0'))));
}

/// A line of the file can hold no line end: in what is only read by people it becomes a blank.
std::string withoutLineEnds(std::string text) {
    std::ranges::replace_if(
        text, [](char c) { return c == '\r' || c == '\n'; }, ' ');
    return text;
}

bool endsWithName(std::string_view text, std::string_view name) {
    return text.size() >= name.size() && sameFolded(text.substr(text.size() - name.size()), name);
}

/// Whole, since the programs that open the source have current folders of their own.
std::string hostFile(std::string_view path) {
    const auto found = foundHostPath(fromAnsi1252(path));
    std::error_code failed;
    const auto whole = std::filesystem::absolute(found, failed);
    return failed ? found : whole.string();
}

/// A text value in the words of unixODBC: its own name of the Access driver, the file as its own path.
EntryWrite entryFor(std::string_view source, std::string_view valueName, std::string_view text) {
    EntryWrite entry{lineText(source), lineText(valueName), withoutLineEnds(lineText(text))};
    if (sameFolded(source, listOfSources)) {
        if (text == accessDescription) entry.value = accessDriver;
    } else if (sameFolded(valueName, "DBQ")) {
        entry.key = databaseKey;
        entry.value = hostFile(text);
    } else if (sameFolded(valueName, "Driver") && endsWithName(text, accessLibrary)) {
        entry.value = accessDriver;
    }
    return entry;
}

constexpr std::size_t longestLine = 990;  ///< in bytes: unixODBC reads no more of one

/// Whether a text comes back from its line as it is.
bool canStandAsValue(std::string_view text) {
    return text.size() < longestLine && withoutBlanks(text) == text &&
           text.find_first_of("\r\n") == std::string_view::npos;
}

bool canStandAsKey(std::string_view key) {
    return canStandAsValue(key) && !key.empty() && key.find('=') == std::string_view::npos &&
           std::string_view("[;#").find(key[0]) == std::string_view::npos;
}

/// A name stands in its header and as a key of the list. unixODBC ends a header at the first bracket.
bool canStandAsSource(std::string_view name) {
    return canStandAsKey(name) && name.find_first_of("[]") == std::string_view::npos;
}

/// What a profile can't say, or would say of something else, stays in the registry alone.
bool canStand(const EntryWrite& entry) {
    const bool isListed = sameFolded(entry.section, listOfSources);
    return canStandAsSource(isListed ? entry.key : entry.section) && canStandAsKey(entry.key) &&
           entry.key.size() + entry.value->size() < longestLine &&
           (entry.key != databaseKey || canStandAsValue(*entry.value));
}

bool isListed(std::string_view text, std::string_view source) {
    ProfileSearch search(listOfSources, source);
    search.goesOnAfter(text);
    return search.value().has_value();
}

I4 statusOf(int error) {
    return error == 0 ? registryStatus::success : registryStatus::ofSystemError(error);
}

/// A new file gets this system's line ends from its first line, which all others follow.
I4 setEntry(const EntryWrite& entry) {
    const bool needsList = entry.section.find('\\') != std::string::npos;
    return statusOf(changeFile(userFile(), [&](std::string_view bytes) -> std::optional<std::string> {
        if (needsList && !isListed(bytes, entry.section)) return {};
        const auto text = bytes.empty() ? "[" + std::string(listOfSources) + "]\n" : std::string(bytes);
        return withEdits(text, editsFor(text, {&entry, 1}));
    }));
}

}  // namespace

std::string_view dataSourceIn(std::string_view path) {
    // Each read asks this, and most keys below Software have another letter in this place.
    const auto second = path.find_first_not_of('\\', std::string_view("Software").size());
    if (second == std::string_view::npos || smallAscii(path[second]) != 'o') return {};
    for (const std::string_view name : {"Software", "ODBC", "ODBC.INI"}) {
        if (!sameFolded(path.substr(0, path.find('\\')), name)) return {};
        path.remove_prefix(std::min(path.find_first_not_of('\\', name.size()), path.size()));
    }
    return path.substr(0, path.find_last_not_of('\\') + 1);
}

bool canKeepSource(std::string_view name, std::string_view file) {
    return canStandAsSource(lineText(name)) && canStandAsValue(hostFile(file));
}

I4 mirrorDataSource(std::string_view source, std::string_view valueName, I4 type, Bytes data) {
    std::string text(reinterpret_cast<const char*>(data.data()), data.size());
    if (type == valueTypes::dword && data.size() == sizeof(I4)) {
        I4 number = 0;
        std::memcpy(&number, data.data(), sizeof number);
        text = std::to_string(number);
    } else if (type != valueTypes::text) {
        return registryStatus::success;
    }
    const auto entry = entryFor(source, valueName, text);
    return canStand(entry) ? setEntry(entry) : registryStatus::success;
}

I4 forgetDataSource(std::string_view source) {
    const auto section = lineText(source);
    if (!canStandAsSource(section)) return registryStatus::success;
    const bool needsList = section.find('\\') != std::string::npos;
    return statusOf(changeFile(userFile(), [&](std::string_view bytes) -> std::optional<std::string> {
        if (needsList && !isListed(bytes, section)) return {};
        const auto removed = withEdits(bytes, editsToRemoveSection(bytes, section));
        const auto text = removed ? *removed : std::string(bytes);
        const EntryWrite unlisting{std::string(listOfSources), section, std::nullopt};
        const auto unlisted = withEdits(text, editsFor(text, {&unlisting, 1}));
        return unlisted ? unlisted : removed;
    }));
}

}  // namespace tovera
