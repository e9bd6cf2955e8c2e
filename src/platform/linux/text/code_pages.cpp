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

/// Most texts are, and cross in a few steps for many characters at once.
template <class Text>
bool isAscii(const Text& text) {
    unsigned bits = 0;
    for (const auto c : text) bits |= static_cast<unsigned>(c);
    return bits < 0x80;
}

}  // namespace

char16_t ansiCharacter(char byte) {
    const auto code = static_cast<std::uint8_t>(byte);
    return code >= 0x80 && code < 0xA0 ? ansiUpper[code - 0x80U] : code;
}

char ansiByte(char16_t character) {
    if (character < 0x80 || (character >= 0xA0 && character <= 0xFF)) return static_cast<char>(character);
    const auto place = ansiUpper.find(character);
    return place == std::u16string_view::npos ? defaultAnsiCharacter : static_cast<char>(0x80 + place);
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
