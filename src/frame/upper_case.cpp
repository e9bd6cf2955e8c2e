#include "frame/upper_case.h"

namespace tovera {
namespace {

/// Letters in a row whose capitals lie at one distance. In rows of pairs every second character is a small
/// letter.
struct Row {
    char16_t first;
    char16_t last;
    char16_t distance;
    bool pairs = false;
};

constexpr std::array rows{
    Row{u'a', u'z', 0x20},      Row{0xE0, 0xF6, 0x20},      Row{0xF8, 0xFE, 0x20},
    Row{0x101, 0x12F, 1, true}, Row{0x133, 0x137, 1, true}, Row{0x13A, 0x148, 1, true},
    Row{0x14B, 0x177, 1, true}, Row{0x17A, 0x17E, 1, true}, Row{0x3AC, 0x3AC, 0x26},
    Row{0x3AD, 0x3AF, 0x25},    Row{0x3B1, 0x3C1, 0x20},    Row{0x3C3, 0x3CB, 0x20},
    Row{0x3CC, 0x3CC, 0x40},    Row{0x3CD, 0x3CE, 0x3F},    Row{0x430, 0x44F, 0x20},
    Row{0x450, 0x45F, 0x50},
};

}  // namespace

char16_t upperCase(char16_t character) {
    constexpr char16_t yWithDiaeresis = 0xFF;
    constexpr char16_t itsCapital = 0x178;
    if (character == yWithDiaeresis) return itsCapital;
    for (const auto& [first, last, distance, pairs] : rows) {
        if (character < first) break;
        if (character > last) continue;
        const bool isSmall = !pairs || (character - first) % 2 == 0;
        return isSmall ? static_cast<char16_t>(character - distance) : character;
    }
    return character;
}

Bstr upperCase(std::u16string_view text) {
    return Bstr::written(text.size(), [&](char16_t* place) {
        return std::ranges::transform(text, place, [](char16_t c) { return upperCase(c); }).out;
    });
}

}  // namespace tovera
