#pragma once

#include <ostream>
#include <string>
#include <windows.h>

namespace tovera::client {

struct ShownBox {
    std::wstring title, text;
    int flags = 0;  ///< 0, 16 or 64; by the icon, which only its own process can tell

    friend bool operator==(const ShownBox&, const ShownBox&) = default;
    friend std::ostream& operator<<(std::ostream& out, const ShownBox& box);
};

/// The message box on the screen, of whatever program; null when there is none.
HWND findMessageBox();
ShownBox read(HWND box);
/// Presses its button OK.
void accept(HWND box);

}  // namespace tovera::client
