#include "client/recorder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <windows.h>

namespace tovera::client {
namespace {

std::wstring foundProgram(const std::wstring& program) {
    std::wstring path(MAX_PATH, L'\0');
    path.resize(SearchPathW(nullptr, program.c_str(), L".exe", MAX_PATH, path.data(), nullptr));
    return path;
}

std::wstring lower(std::wstring text) {
    CharLowerW(text.data());
    return text;
}

}  // namespace

Recorder::Recorder() : before_(std::filesystem::current_path().wstring()), folder_(MAX_PATH, L'\0') {
    folder_.resize(GetModuleFileNameW(nullptr, folder_.data(), MAX_PATH));
    folder_.replace(folder_.find_last_of(L'\\') + 1, folder_.npos, L"recorder");
    SetCurrentDirectoryW(folder_.c_str());
    take(0);
}

Recorder::~Recorder() {
    SetCurrentDirectoryW(before_.c_str());
}

bool Recorder::standsFor(const std::wstring& program) const {
    return lower(foundProgram(program)) == lower(folder_ + L"\\" + program + L".exe");
}

std::vector<std::string> Recorder::take(std::size_t count) const {
    const auto file = std::filesystem::path(folder_) / "started.txt";
    std::vector<std::string> lines;
    for (int tries = 200; tries > 0; --tries) {
        lines.clear();
        std::ifstream recorded(file);
        for (std::string line; std::getline(recorded, line);) lines.push_back(line);
        if (lines.size() >= count) break;
        Sleep(50);
    }
    std::error_code ignored;
    std::filesystem::remove(file, ignored);
    std::ranges::sort(lines);  // programs that were started one after the other needn't end in this order
    return lines;
}

}  // namespace tovera::client
