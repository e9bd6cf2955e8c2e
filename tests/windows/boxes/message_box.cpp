#include "boxes/message_box.h"

#include <string_view>

namespace tovera::client {
namespace {

// The identifiers of the text and of the icon in every message box.
constexpr int textControl = 0xFFFF;
constexpr int iconControls[] = {20, 1088};

BOOL CALLBACK keepMessageBox(HWND window, LPARAM found) {
    wchar_t name[16]{};
    GetClassNameW(window, name, 16);
    if (std::wstring_view(name) != L"#32770" || !IsWindowVisible(window) || !GetDlgItem(window, textControl))
        return TRUE;
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

/// Windows of other processes tell their texts only when asked in this way.
std::wstring textOf(HWND window) {
    std::wstring text(2048, L'\0');
    const auto address = reinterpret_cast<LPARAM>(text.data());
    text.resize(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXT, text.size(), address)));
    return text;
}

int flagsOf(HWND box) {
    for (const int control : iconControls) {
        const HWND place = GetDlgItem(box, control);
        const LRESULT icon = place ? SendMessageW(place, STM_GETICON, 0, 0) : 0;
        if (!icon) continue;
        if (icon == reinterpret_cast<LRESULT>(LoadIconW(nullptr, IDI_INFORMATION))) return MB_ICONINFORMATION;
        if (icon == reinterpret_cast<LRESULT>(LoadIconW(nullptr, IDI_ERROR))) return MB_ICONERROR;
        return -1;
    }
    return 0;
}

}  // namespace

HWND findMessageBox(DWORD thread) {
    HWND found = nullptr;
    const auto address = reinterpret_cast<LPARAM>(&found);
    if (thread) {
        EnumThreadWindows(thread, keepMessageBox, address);
    } else {
        EnumWindows(keepMessageBox, address);
    }
    return found;
}

ShownBox read(HWND box) {
    return {textOf(box), textOf(GetDlgItem(box, textControl)), flagsOf(box)};
}

void accept(HWND box) {
    PostMessageW(box, WM_COMMAND, IDOK, 0);
}

}  // namespace tovera::client
