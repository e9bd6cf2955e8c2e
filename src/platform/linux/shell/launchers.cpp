#include "platform/linux/shell/launchers.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <set>

#include "frame/ascii_case.h"
#include "frame/utf8.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/text/letter_case.h"

namespace tovera {
namespace {

constexpr std::string_view table =
#include "platform/linux/shell/launchers.table"
    ;

struct TableLine {
    std::string desktop;  ///< in capitals; "=" for one that goes on with another section
    LauncherCommand command;
};
using Sections = std::map<std::string, std::vector<TableLine>, std::less<>>;

std::string upper(std::string_view text) {
    return toUtf8(capitals(fromUtf8(text)));
}

std::string trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

LauncherCommand blankSeparated(std::string_view text) {
    LauncherCommand words;
    for (std::size_t at = 0; (at = text.find_first_not_of(' ', at)) != std::string_view::npos;) {
        const auto end = std::min(text.find(' ', at), text.size());
        words.emplace_back(text.substr(at, end - at));
        at = end;
    }
    return words;
}

Sections readTable(std::string_view text) {
    Sections sections;
    std::string section;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.empty() || line[0] == '#') continue;
        if (line[0] == '[') {
            section = line.substr(1, line.size() - 2);
            sections[section];
        } else {
            const auto blank = std::min(line.find(' '), line.size());
            const auto rest = trimmed(line.substr(blank));
            const bool goesOn = line[0] == '=';
            sections[section].push_back(
                {upper(line.substr(0, blank)), goesOn ? LauncherCommand{rest} : blankSeparated(rest)});
        }
    }
    return sections;
}

/// A line as the keys of the table are written, and for each character its place in the line.
struct NormalLine {
    std::string text;
    std::vector<std::size_t> places;
};

NormalLine normalised(std::string_view line) {
    NormalLine normal;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const char c = line[at];
        const bool separates = c == ' ' || c == ',';
        if (separates && (normal.text.empty() || normal.text.back() == ' ')) continue;
        normal.text += separates ? ' ' : smallAscii(c);
        normal.places.push_back(at);
    }
    return normal;
}

void dropStart(NormalLine& line, std::string_view start) {
    if (!line.text.starts_with(start)) return;
    line.text.erase(0, start.size());
    line.places.erase(line.places.begin(), line.places.begin() + static_cast<std::ptrdiff_t>(start.size()));
}

struct Found {
    std::string_view section;
    std::string joined;
};

/// The text behind the part of a key: what follows its last separator, from which more commas are no part.
std::string textFrom(std::string_view line, std::size_t place) {
    auto rest = line.substr(place + 1);
    while (rest.starts_with(',')) rest.remove_prefix(1);
    return std::string(rest);
}

std::optional<Found> sectionOf(const Sections& sections, std::string_view line) {
    auto normal = normalised(line);
    for (const auto* program : {"rundll32 ", "rundll32.exe "}) dropStart(normal, program);
    dropStart(normal, "shell32.dll control_rundll ");
    const auto exact = sections.find(trimmed(normal.text));
    if (exact != sections.end() && !exact->first.ends_with('N')) return Found{exact->first, {}};
    std::optional<Found> longest;
    std::size_t length = 0;
    for (const auto& [key, lines] : sections) {
        if (!key.ends_with('N') || key.size() <= length) continue;
        const auto prefix = std::string_view(key).substr(0, key.size() - 1);
        if (!normal.text.starts_with(prefix) || normal.text.size() == prefix.size()) continue;
        longest = Found{key, textFrom(line, normal.places[prefix.size() - 1])};
        length = key.size();
    }
    return longest;
}

/// The joined text as an absolute path, so that none can be taken for an option.
std::string absolutePath(const std::string& text) {
    auto path = foundHostPath(fromUtf8(text));
    if (path.empty()) path = text;
    std::error_code ignored;
    return path.starts_with('/') ? path : (std::filesystem::current_path(ignored) / path).string();
}

void addCommands(const Sections& sections, std::string_view section, const std::vector<std::string>& desktops,
                 std::vector<LauncherCommand>& commands, int depth = 0) {
    constexpr int deepest = 8;
    const auto found = sections.find(section);
    if (found == sections.end() || depth > deepest) return;
    const auto add = [&](std::string_view desktop) {
        for (const auto& line : found->second)
            if (line.desktop == desktop) commands.push_back(line.command);
    };
    for (const auto& desktop : desktops) add(desktop);
    add("*");
    for (const auto& line : found->second)
        if (line.desktop == "=") addCommands(sections, line.command[0], desktops, commands, depth + 1);
}

void putInPlace(std::string& word, const std::string& joined) {
    constexpr std::string_view mark = "%1";
    const auto place = word.find(mark);
    if (place != std::string::npos) word.replace(place, mark.size(), joined);
}

const Sections& ownSections() {
    static const auto sections = readTable(table);
    return sections;
}

}  // namespace

std::string_view launcherTable() {
    return table;
}

std::vector<LauncherCommand> launcherCommands(std::string_view line,
                                              const std::vector<std::string>& desktops) {
    const auto found = sectionOf(ownSections(), line);
    std::vector<LauncherCommand> commands;
    if (!found) return commands;
    addCommands(ownSections(), found->section, desktops, commands);
    const auto joined = found->joined.empty() ? std::string() : absolutePath(found->joined);
    for (auto& command : commands)
        for (auto& word : command) putInPlace(word, joined);
    return commands;
}

std::vector<std::string> desktopNames() {
    std::vector<std::string> names;
    for (const auto* variable : {"XDG_CURRENT_DESKTOP", "XDG_SESSION_DESKTOP", "DESKTOP_SESSION"}) {
        const char* const value = std::getenv(variable);
        std::string_view list = value ? value : "";
        while (!list.empty()) {
            const auto end = std::min(list.find(':'), list.size());
            auto name = upper(list.substr(0, end));
            if (!name.empty() && std::ranges::find(names, name) == names.end())
                names.push_back(std::move(name));
            list.remove_prefix(std::min(end + 1, list.size()));
        }
    }
    return names;
}

std::vector<std::string> faultsOf(std::string_view text) {
    static const std::set<std::string> desktops{"*",    "=",    "GNOME",      "BUDGIE", "KDE",
                                                "XFCE", "LXQT", "X-CINNAMON", "MATE",   "LXDE"};
    static const std::set<std::string> verbs{"@open",     "@openwith", "@program",
                                             "@terminal", "@logind",   "@dbus"};
    std::vector<std::string> faults;
    const auto report = [&](const std::string& key, std::string_view fault, std::string_view what = {}) {
        faults.emplace_back(key).append(": ").append(fault).append(what);
    };
    const auto sections = readTable(text);
    for (const auto& [key, lines] : sections) {
        if (lines.empty()) report(key, "no line");
        for (const auto& [desktop, command] : lines) {
            if (!desktops.contains(desktop)) report(key, "desktop ", desktop);
            if (command.empty() || command[0].empty()) {
                report(key, "no command");
            } else if (desktop == "=" && !sections.contains(command[0])) {
                report(key, "goes on with ", command[0]);
            } else if (command[0][0] == '@' && !verbs.contains(command[0])) {
                report(key, "verb ", command[0]);
            }
        }
    }
    return faults;
}

}  // namespace tovera
