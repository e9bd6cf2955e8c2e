#pragma once

#include <string_view>

// What a profile (INI) file keeps of a value, in ANSI bytes.
namespace tovera {

/// Blanks round names and values: white space, and the end-of-file mark of DOS.
constexpr bool isProfileBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A';
}

constexpr std::string_view withoutBlanks(std::string_view text) {
    while (!text.empty() && isProfileBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isProfileBlank(text.back())) text.remove_suffix(1);
    return text;
}

/// A value without the one pair of quotation marks, single or double, that encloses it.
constexpr std::string_view withoutQuotes(std::string_view value) {
    if (value.size() < 2 || value.front() != value.back()) return value;
    return value.front() == '"' || value.front() == '\'' ? value.substr(1, value.size() - 2) : value;
}

}  // namespace tovera
