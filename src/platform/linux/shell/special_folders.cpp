#include "platform/linux/shell/special_folders.h"

#include <charconv>
#include <filesystem>
#include <map>
#include <string_view>

#include "frame/utf8.h"
#include "platform/linux/files/paths.h"
#include "platform/linux/shell/user_folders.h"

namespace tovera {
namespace {

constexpr std::string_view table =
#include "platform/linux/shell/special_folders.table"
    ;

/// Lines "number place", where what begins with # is no line.
std::map<I4, std::string> readTable(std::string_view text) {
    std::map<I4, std::string> places;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size());
        const auto line = text.substr(0, end);
        text.remove_prefix(std::min(end + 1, text.size()));
        I4 number = 0;
        const auto [rest, error] = std::from_chars(line.data(), line.data() + line.size(), number);
        if (error != std::errc()) continue;
        const auto blanks = line.find_first_not_of(' ', static_cast<std::size_t>(rest - line.data()));
        places.emplace(number, line.substr(blanks));
    }
    return places;
}

void makeFolder(const std::string& path) {
    std::error_code ignored;
    std::filesystem::create_directories(path, ignored);
}

/// `$NAME` or `$NAME/below`.
std::string placeOfVariable(std::string_view place) {
    const auto slash = std::min(place.find('/'), place.size());
    const std::string name(place.substr(1, slash - 1));
    return (name == "HOME" ? userHome() : userFolder(name)) + std::string(place.substr(slash));
}

}  // namespace

std::optional<SpecialFolder> specialFolder(I4 number) {
    static const auto places = readTable(table);
    constexpr I4 withoutFlags = 0xFF;
    constexpr I4 create = 0x8000;
    const auto found = places.find(number & withoutFlags);
    if (number < 0 || found == places.end()) return std::nullopt;
    const auto& place = found->second;
    if (place == "-") return SpecialFolder{};
    const bool isOnC = place.starts_with("C:");
    SpecialFolder folder{isOnC             ? foundHostPath(fromUtf8(place))
                         : place[0] == '$' ? placeOfVariable(place)
                                           : place};
    const bool isBase = place.starts_with("$XDG_") && place.find("_HOME") != std::string::npos;
    if (isOnC || isBase || (number & create) != 0) makeFolder(folder.path);
    return folder;
}

}  // namespace tovera
