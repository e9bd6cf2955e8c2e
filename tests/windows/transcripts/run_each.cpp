// Runs command lines one after the other, so that many need only one start of Windows. Each line of standard
// input is the path of a file for the program's own standard input (or "-"), a tab, and a command line, in
// UTF-8. What the program writes goes where our own output goes; behind it comes a line of the byte 4,
// "status" and the exit status.
#include <iostream>
#include <string>
#include <windows.h>

namespace {

std::wstring wide(const std::string& text) {
    std::wstring units(text.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                           units.data(), static_cast<int>(units.size()));
    units.resize(static_cast<std::size_t>(length));
    return units;
}

HANDLE openInput(const std::string& path) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileW(path == "-" ? L"NUL" : wide(path).c_str(), GENERIC_READ, FILE_SHARE_READ, &inherited,
                       OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
}

DWORD run(std::wstring commandLine, HANDLE input) {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    SetHandleInformation(output, HANDLE_FLAG_INHERIT, HANDLE_FLAG_INHERIT);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = input;
    startup.hStdOutput = startup.hStdError = output;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        return GetLastError();
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return status;
}

}  // namespace

int main() {
    for (std::string line; std::getline(std::cin, line);) {
        if (line.ends_with('\r')) line.pop_back();
        const auto tab = line.find('\t');
        if (tab == std::string::npos) continue;
        const HANDLE input = openInput(line.substr(0, tab));
        const auto status = run(wide(line.substr(tab + 1)), input);
        CloseHandle(input);
        std::cout << "\4status " << status << std::endl;
    }
}
