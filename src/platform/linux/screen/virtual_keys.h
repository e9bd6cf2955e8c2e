#pragma once

#include <array>
#include <cstdint>
#include <span>

namespace tovera {

/// A virtual key and a symbol that the key bears on X. Some have several rows: left and right ones, and those
/// of the number pad, whose symbol follows Num Lock.
struct VirtualKey {
    std::uint8_t key;
    std::uint32_t symbol;
};

/// All but letters, digits and function keys, whose numbers follow each other in both tables.
inline constexpr auto otherVirtualKeys = std::to_array<VirtualKey>({
    {0x08, 0xFF08},                  // BackSpace
    {0x09, 0xFF09},                  // Tab
    {0x0C, 0xFF0B}, {0x0C, 0xFF9D},  // Clear, and the 5 of the number pad
    {0x0D, 0xFF0D}, {0x0D, 0xFF8D},  // Return, Enter of the number pad
    {0x10, 0xFFE1}, {0x10, 0xFFE2}, {0xA0, 0xFFE1},
    {0xA1, 0xFFE2},  // Shift
    {0x11, 0xFFE3}, {0x11, 0xFFE4}, {0xA2, 0xFFE3},
    {0xA3, 0xFFE4},                                  // Control
    {0x12, 0xFFE9}, {0x12, 0xFFEA}, {0x12, 0xFE03},  // Alt, and AltGr
    {0xA4, 0xFFE9}, {0xA5, 0xFFEA}, {0xA5, 0xFE03},
    {0x13, 0xFF13},  // Pause
    {0x14, 0xFFE5},  // Caps Lock
    {0x1B, 0xFF1B},  // Escape
    {0x20, 0x0020},  // space
    {0x21, 0xFF55}, {0x22, 0xFF56}, {0x23, 0xFF57},
    {0x24, 0xFF50},  // Page Up, Page Down, End, Home
    {0x25, 0xFF51}, {0x26, 0xFF52}, {0x27, 0xFF53},
    {0x28, 0xFF54},                                  // arrows: left, up, right, down
    {0x29, 0xFF60}, {0x2B, 0xFF62}, {0x2C, 0xFF61},  // Select, Execute, Print
    {0x2D, 0xFF63}, {0x2E, 0xFFFF}, {0x2F, 0xFF6A},  // Insert, Delete, Help
    {0x5B, 0xFFEB}, {0x5C, 0xFFEC}, {0x5D, 0xFF67},  // left and right Super, Menu
    {0x6A, 0xFFAA}, {0x6B, 0xFFAB}, {0x6C, 0xFFAC},
    {0x6D, 0xFFAD},                  // number pad: times, plus, separator, minus
    {0x6E, 0xFFAE}, {0x6F, 0xFFAF},  // point, divided by
    {0x90, 0xFF7F}, {0x91, 0xFF14},  // Num Lock, Scroll Lock
    {0xBA, 0x003B}, {0xBB, 0x003D}, {0xBC, 0x002C},
    {0xBD, 0x002D},                                  // ; = , -
    {0xBE, 0x002E}, {0xBF, 0x002F}, {0xC0, 0x0060},  // . / `
    {0xDB, 0x005B}, {0xDC, 0x005C}, {0xDD, 0x005D},
    {0xDE, 0x0027},  // [ \ ] '
    {0xE2, 0x003C},  // <
});

/// Numbers of keys that follow each other, as their symbols do.
struct VirtualKeyRange {
    std::uint8_t firstKey;
    std::uint8_t count;
    std::uint32_t firstSymbol;
};

inline constexpr auto virtualKeyRanges = std::to_array<VirtualKeyRange>({
    {0x30, 10, 0x0030},  // 0 to 9
    {0x41, 26, 0x0061},  // A to Z, whose keys bear the small letters
    {0x60, 10, 0xFFB0},  // 0 to 9 of the number pad
    {0x70, 24, 0xFFBE},  // F1 to F24
});

/// Calls `take` with each virtual key that a symbol stands for.
template <class Take>
void forKeysOfSymbol(std::uint32_t symbol, Take&& take) {
    for (const auto& row : otherVirtualKeys)
        if (row.symbol == symbol) take(row.key);
    for (const auto& range : virtualKeyRanges)
        if (symbol - range.firstSymbol < range.count)
            take(static_cast<std::uint8_t>(range.firstKey + (symbol - range.firstSymbol)));
}

}  // namespace tovera
