#include "platform/program_streams.h"

#include <algorithm>
#include <array>
#include <memory>

#include "frame/utf8.h"
#include "platform/windows/system_opening.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

HANDLE handleOf(StandardStream stream) {
    constexpr std::array handles{STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    return GetStdHandle(handles[static_cast<std::size_t>(stream)]);
}

/// A console takes and gives characters, whatever code page it is set to; all else gets bytes.
bool isConsole(HANDLE handle) {
    DWORD mode = 0;
    return GetConsoleMode(handle, &mode) != 0;
}

/// Characters typed at the console, those first that an earlier read had no room for.
std::optional<std::size_t> readConsole(HANDLE console, std::span<char> bytes) {
    static std::string waiting;
    if (waiting.empty()) {
        std::array<wchar_t, 4096> typed{};
        DWORD count = 0;
        if (!ReadConsoleW(console, typed.data(), typed.size(), &count, nullptr)) return {};
        constexpr wchar_t endOfInput = 26;  // Ctrl-Z
        if (count > 0 && typed[0] == endOfInput) return 0;
        waiting = toUtf8(std::u16string(typed.data(), typed.data() + count));
    }
    const auto taken = std::min(waiting.size(), bytes.size());
    std::copy_n(waiting.begin(), taken, bytes.begin());
    waiting.erase(0, taken);
    return taken;
}

bool writeConsole(HANDLE console, std::string_view bytes) {
    std::wstring rest = wide(fromUtf8(bytes));
    while (!rest.empty()) {
        constexpr std::size_t most = 8192;
        DWORD count = 0;
        const auto piece = static_cast<DWORD>(std::min(rest.size(), most));
        if (!WriteConsoleW(console, rest.data(), piece, &count, nullptr) || count == 0) return false;
        rest.erase(0, count);
    }
    return true;
}

struct FreeLocal {
    void operator()(void* memory) const { LocalFree(memory); }
};

std::string utf8Of(const std::wstring& text) {
    return toUtf8(utf16(text));
}

}  // namespace

void startProgram() {
    // The program's thread is the one that its objects live on.
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
}

std::vector<std::string> programArguments(int, char**) {
    int count = 0;
    const std::unique_ptr<LPWSTR[], FreeLocal> values(CommandLineToArgvW(GetCommandLineW(), &count));
    std::vector<std::string> arguments;
    for (int i = 1; values && i < count; ++i)
        arguments.push_back(utf8Of(values[static_cast<std::size_t>(i)]));
    return arguments;
}

std::optional<std::size_t> readInput(std::span<char> bytes) {
    const HANDLE input = handleOf(StandardStream::Input);
    if (isConsole(input)) return readConsole(input, bytes);
    DWORD count = 0;
    if (ReadFile(input, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) return count;
    // The writer of a pipe has gone: that is its end.
    if (GetLastError() == ERROR_BROKEN_PIPE) return 0;
    return {};
}

bool writeStream(StandardStream stream, std::string_view bytes) {
    const HANDLE output = handleOf(stream);
    if (isConsole(output)) return writeConsole(output, bytes);
    while (!bytes.empty()) {
        DWORD count = 0;
        if (!WriteFile(output, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) return false;
        bytes.remove_prefix(count);
    }
    return true;
}

std::string streamFailure() {
    std::wstring text(512, L'\0');
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, GetLastError(), 0,
                       text.data(), static_cast<DWORD>(text.size()), nullptr);
    text.resize(length);
    text.erase(std::find_if_not(text.rbegin(), text.rend(), [](wchar_t c) { return c <= L' '; }).base(),
               text.end());
    return utf8Of(text);
}

bool isTerminal(StandardStream stream) {
    return isConsole(handleOf(stream));
}

void pause(std::chrono::milliseconds time) {
    Sleep(static_cast<DWORD>(time.count()));
}

/// Dialogs here belong to programs of their own.
bool hasOpenDialog() {
    return false;
}

}  // namespace tovera
