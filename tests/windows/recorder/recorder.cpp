// Stands in for a program of the system: adds its command line and the state of its window to the file
// `started.txt` beside it, in UTF-8. What tests launch goes here instead of opening pages, or ending the
// system.
#include <string>
#include <windows.h>

namespace {

std::wstring logFile() {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), MAX_PATH));
    return path.replace(path.find_last_of(L'\\') + 1, path.npos, L"started.txt");
}

std::string utf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()), bytes.data(),
                                         static_cast<int>(bytes.size()), nullptr, nullptr);
    bytes.resize(static_cast<std::size_t>(size));
    return bytes;
}

}  // namespace

int main() {
    STARTUPINFOW startup{};
    GetStartupInfoW(&startup);
    const auto line =
        utf8(std::wstring(GetCommandLineW())) + " (show " + std::to_string(startup.wShowWindow) + ")\n";
    HANDLE file = CreateFileW(logFile().c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                              nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD written = 0;
    WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    CloseHandle(file);
}
