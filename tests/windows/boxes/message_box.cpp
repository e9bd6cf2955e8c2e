#include "boxes/message_box.h"

#include "client/com.h"

namespace tovera::client {
namespace {

// The identifiers of the text and of the icon in every message box.
constexpr int textControl = 0xFFFF;
constexpr int iconControl = 1088;

/// Windows of other processes tell their texts only when asked in this way.
std::wstring textOf(HWND window) {
    std::wstring text(2048, L'\0');
    const auto address = reinterpret_cast<LPARAM>(text.data());
    text.resize(static_cast<std::size_t>(SendMessageW(window, WM_GETTEXT, text.size(), address)));
    return text;
}

int flagsOf(HWND box) {
    const LRESULT icon = SendDlgItemMessageW(box, iconControl, STM_GETICON, 0, 0);
    if (icon == reinterpret_cast<LRESULT>(LoadIconW(nullptr, IDI_INFORMATION))) return MB_ICONINFORMATION;
    if (icon == reinterpret_cast<LRESULT>(LoadIconW(nullptr, IDI_ERROR))) return MB_ICONERROR;
    return icon ? -1 : 0;
}

}  // namespace

HWND findMessageBox() {
    const HWND found = FindWindowW(L"#32770", nullptr);
    return found && IsWindowVisible(found) && GetDlgItem(found, textControl) ? found : nullptr;
}

ShownBox read(HWND box) {
    return {textOf(box), textOf(GetDlgItem(box, textControl)), flagsOf(box)};
}

void accept(HWND box) {
    PostMessageW(box, WM_COMMAND, IDOK, 0);
}

std::ostream& operator<<(std::ostream& out, const ShownBox& box) {
    return out << "[" << utf8(box.title) << "] " << utf8(box.text) << " flags " << box.flags;
}

}  // namespace tovera::client
