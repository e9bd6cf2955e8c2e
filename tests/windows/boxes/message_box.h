#pragma once

#include <ostream>
#include <string>
#include <windows.h>

namespace tovera::client {

struct ShownBox {
    std::wstring title;
    std::wstring text;
    int flags = 0;  ///< 0, 16 or 64; by the icon, which only its own process can tell

    friend bool operator==(const ShownBox&, const ShownBox&) = default;
    friend std::ostream& operator<<(std::ostream& out, const ShownBox& box);
};

/// A message box on the screen: of one thread, or of any process with thread 0. Null when there is none.
HWND findMessageBox(DWORD thread);
ShownBox read(HWND box);
/// Presses its button OK.
void accept(HWND box);

}  // namespace tovera::client
