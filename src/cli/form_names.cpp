#include "cli/form_names.h"

#include <algorithm>
#include <cstdint>

#include "frame/upper_case.h"

namespace tovera::cli {

/// Latin letters lie where Unicode has them, but for four.
char capitalByte(char letter) {
    const auto byte = static_cast<std::uint8_t>(letter);
    switch (byte) {
        case 0x9A:  // s and z with caron, and oe
        case 0x9C:
        case 0x9E:
            return static_cast<char>(byte - 0x10);
        case 0xFF:  // y with diaeresis
            return '\x9F';
        default:
            return static_cast<char>(upperCase(static_cast<char16_t>(byte)));
    }
}

bool sameName(std::string_view a, std::string_view b) {
    return std::ranges::equal(a, b, {}, capitalByte, capitalByte);
}

}  // namespace tovera::cli
