#pragma once

#include <algorithm>
#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

// Letters of ASCII without regard to case; all other characters count as they are.
namespace tovera {

template <std::integral Character>
constexpr bool isAsciiLetter(Character c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

/// The small letter of a capital one, and any other character as it is.
template <std::integral Character>
constexpr Character smallAscii(Character c) {
    return c >= 'A' && c <= 'Z' ? static_cast<Character>(c | 0x20) : c;
}

inline std::string smallAscii(std::string_view text) {
    std::string small(text);
    std::ranges::transform(small, small.begin(), [](char c) { return smallAscii(c); });
    return small;
}

/// Whether a text is this word of small letters, in any case.
template <std::integral Character>
constexpr bool isWord(std::basic_string_view<Character> text,
                      std::type_identity_t<std::basic_string_view<Character>> word) {
    return std::ranges::equal(text, word, {}, [](Character c) { return smallAscii(c); });
}

}  // namespace tovera
