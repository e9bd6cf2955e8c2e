#include "frame/utf8.h"

#include <array>
#include <cstdint>

namespace tovera {
namespace {

constexpr char32_t replacement = 0xFFFD;

constexpr bool isHighSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

constexpr bool isLowSurrogate(char16_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

void appendUtf8(std::string& bytes, char32_t code) {
    const auto tail = [&](int shift) { bytes += static_cast<char>(0x80 | ((code >> shift) & 0x3F)); };
    if (code < 0x80) {
        bytes += static_cast<char>(code);
    } else if (code < 0x800) {
        bytes += static_cast<char>(0xC0 | (code >> 6));
        tail(0);
    } else if (code < 0x10000) {
        bytes += static_cast<char>(0xE0 | (code >> 12));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | (code >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

void appendUtf16(std::u16string& text, char32_t code) {
    if (code < 0x10000) {
        text += static_cast<char16_t>(code);
    } else {
        text += static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
}

struct Decoded {
    char32_t code;
    std::size_t bytes;
};

Decoded decode(std::string_view bytes) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const auto lead = byte(0);
    if (lead < 0x80) return {lead, 1};
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() < length) return {replacement, 1};
    char32_t code = lead & (0x7F >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return {replacement, 1};
        code = (code << 6) | (byte(i) & 0x3F);
    }
    constexpr std::array<char32_t, 5> smallest{0, 0, 0x80, 0x800, 0x10000};
    const bool surrogate = code >= 0xD800 && code < 0xE000;
    if (code < smallest[length] || code > 0x10FFFF || surrogate) return {replacement, 1};
    return {code, length};
}

}  // namespace

std::string toUtf8(std::u16string_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 4);
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = text[i];
        if (isHighSurrogate(unit) && i + 1 < text.size() && isLowSurrogate(text[i + 1])) {
            appendUtf8(bytes, 0x10000 + ((char32_t{unit} - 0xD800) << 10) + (char32_t{text[++i]} - 0xDC00));
        } else {
            appendUtf8(bytes, isHighSurrogate(unit) || isLowSurrogate(unit) ? replacement : char32_t{unit});
        }
    }
    return bytes;
}

std::u16string fromUtf8(std::string_view bytes) {
    std::u16string text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        const auto [code, used] = decode(bytes);
        appendUtf16(text, code);
        bytes.remove_prefix(used);
    }
    return text;
}

}  // namespace tovera
