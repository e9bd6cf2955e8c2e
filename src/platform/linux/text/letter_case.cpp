#include "platform/linux/text/letter_case.h"

#include <algorithm>
#include <clocale>
#include <cwctype>

#include "platform/linux/text/code_pages.h"

namespace tovera {
namespace {

constexpr bool isSmallAscii(char16_t character) {
    return character >= u'a' && character <= u'z';
}

char16_t capitalBeyondAscii(char16_t character) {
    static const locale_t unicode = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    if (!unicode) return character;
    const auto upper = towupper_l(character, unicode);
    return upper <= 0xFFFF ? static_cast<char16_t>(upper) : character;
}

char capitalOf(char byte) {
    const auto upper = capital(ansiCharacter(byte));
    const auto found = ansiByte(upper);
    return ansiCharacter(found) == upper ? found : byte;
}

}  // namespace

const std::array<char, 256>& ansiCapitals() {
    static const auto table = [] {
        std::array<char, 256> made{};
        for (std::size_t code = 0; code < made.size(); ++code)
            made[code] = capitalOf(static_cast<char>(code));
        return made;
    }();
    return table;
}

char16_t capital(char16_t character) {
    if (character < 0x80) {
        return isSmallAscii(character) ? static_cast<char16_t>(character - 0x20) : character;
    }
    return capitalBeyondAscii(character);
}

std::u16string capitals(std::u16string_view text) {
    std::u16string upper(text);
    std::ranges::transform(upper, upper.begin(), capital);
    return upper;
}

}  // namespace tovera
