#include "platform/linux/text/code_pages.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace tovera {
namespace {

/// 1252 from 0x80 to 0x9F; the rest of it is Latin-1.
constexpr std::u16string_view ansiUpper =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152\u008D\u017D\u008F"
    u"\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122\u0161\u203A\u0153\u009D\u017E\u0178";

/// 850 from 0x80 to 0xFF; below it is ASCII.
constexpr std::u16string_view oemUpper =
    u"ÇüéâäàåçêëèïîìÄÅ"
    u"ÉæÆôöòûùÿÖÜø£Ø×ƒ"
    u"áíóúñÑªº¿®¬½¼¡«»"
    u"░▒▓│┤ÁÂÀ©╣║╗╝¢¥┐"
    u"└┴┬├─┼ãÃ╚╔╩╦╠═╬¤"
    u"ðÐÊËÈıÍÎÏ┘┌█▄¦Ì▀"
    u"ÓßÔÒõÕµþÞÚÛÙýÝ¯´"
    u"\u00AD±‗¾¶§÷¸°¨·¹³²■\u00A0";

struct NearestSign {
    std::u16string_view characters;
    char16_t sign;
};

constexpr std::array nearestSigns{
    NearestSign{u"░▒▓│┤╣║╠█■", u'¦'}, NearestSign{u"╗╝┐└├┼╚╔╬┘┌", u'+'}, NearestSign{u"┴┬─╩╦═", u'-'},
    NearestSign{u"‗", u'='},          NearestSign{u"▄", u'_'},           NearestSign{u"▀", u'¯'},
    NearestSign{u"ı", u'i'},
};

constexpr char16_t nearestSign(char16_t character) {
    for (const auto& row : nearestSigns) {
        if (row.characters.find(character) != std::u16string_view::npos) return row.sign;
    }
    return character;
}

constexpr char16_t characterOf(std::size_t code) {
    return code >= 0x80 && code < 0xA0 ? ansiUpper[code - 0x80] : static_cast<char16_t>(code);
}

constexpr auto ansiCharacters = [] {
    std::array<char16_t, 256> table{};
    for (std::size_t code = 0; code < table.size(); ++code) table[code] = characterOf(code);
    return table;
}();

/// The bytes of the characters whose upper halves are the same.
using Page = std::array<char, 256>;

constexpr Page pageOf(std::size_t upper) {
    Page page{};
    page.fill(defaultAnsiCharacter);
    for (std::size_t code = 0; code < ansiCharacters.size(); ++code)
        if (ansiCharacters[code] >> 8 == upper) page[ansiCharacters[code] & 0xFF] = static_cast<char>(code);
    return page;
}

/// The upper halves that the code page has characters of; all others share the last page.
constexpr std::array<std::uint8_t, 5> upperHalves{0x00, 0x01, 0x02, 0x20, 0x21};
constexpr std::array pages{pageOf(0x00), pageOf(0x01), pageOf(0x02),
                           pageOf(0x20), pageOf(0x21), pageOf(0x100)};

constexpr auto placesOfPages = [] {
    std::array<std::uint8_t, 256> places{};
    places.fill(upperHalves.size());
    for (std::size_t i = 0; i < upperHalves.size(); ++i)
        places[upperHalves[i]] = static_cast<std::uint8_t>(i);
    return places;
}();

/// Most texts are, and cross in a few steps for many characters at once.
template <class Text>
bool isAscii(const Text& text) {
    unsigned bits = 0;
    for (const auto c : text) bits |= static_cast<unsigned>(c);
    return bits < 0x80;
}

}  // namespace

char16_t ansiCharacter(char byte) {
    return ansiCharacters[static_cast<std::uint8_t>(byte)];
}

char ansiByte(char16_t character) {
    return pages[placesOfPages[character >> 8]][character & 0xFF];
}

std::string toAnsi1252(std::u16string_view text) {
    std::string bytes(text.size(), '\0');
    if (isAscii(text)) {
        std::ranges::transform(text, bytes.begin(), [](char16_t c) { return static_cast<char>(c); });
    } else {
        std::ranges::transform(text, bytes.begin(), ansiByte);
    }
    return bytes;
}

std::u16string fromAnsi1252(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    if (isAscii(bytes)) {
        std::ranges::copy(bytes, text.begin());
    } else {
        std::ranges::transform(bytes, text.begin(), ansiCharacter);
    }
    return text;
}

char oemToAnsi(char byte) {
    const auto code = static_cast<std::uint8_t>(byte);
    return code < 0x80 ? byte : ansiByte(nearestSign(oemUpper[code - 0x80U]));
}

}  // namespace tovera
