#pragma once

#include <string>
#include <string_view>

// Texts in the system's own type for UTF-16, with the NUL behind them that it looks for, and back.
namespace tovera {

inline std::wstring wide(std::u16string_view text) {
    return {text.begin(), text.end()};
}

inline std::u16string utf16(std::wstring_view text) {
    return {text.begin(), text.end()};
}

}  // namespace tovera
