#include "platform/windows/launch.h"

#include "frame/last_error.h"
#include "platform/windows/system.h"
#include "platform/windows/wide_text.h"

namespace tovera {

R8 launchProgram(const Bstr& commandLine, WindowStyle style) {
    // The system writes into the line while it cuts off the name of the program.
    std::wstring writable = wide(beforeNul(commandLine));
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = style == WindowStyle::MinimizedFocus ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    const bool started = CreateProcessW(nullptr, writable.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                        nullptr, &startup, &process) != 0;
    const DWORD error = GetLastError();
    lastError() = static_cast<I4>(error);
    if (!started) {
        const bool missing = error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
        raise(missing ? ErrorNumber::FileNotFound : ErrorNumber::InvalidCall);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return process.dwProcessId;
}

}  // namespace tovera
