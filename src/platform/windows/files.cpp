#include "platform/files.h"

#include <memory>
#include <string_view>

#include "frame/last_error.h"
#include "platform/windows/file_handles.h"
#include "platform/windows/wide_text.h"

namespace tovera {
namespace {

/// Saves the system's error, and raises the one that stands for it when a call failed.
void succeeded(BOOL result) {
    const DWORD status = GetLastError();
    lastError() = static_cast<I4>(status);
    if (!result) raise(fileErrorOf(status));
}

struct EndSearch {
    using pointer = HANDLE;
    void operator()(HANDLE search) const { FindClose(search); }
};
/// A walk through a folder; null where nothing was found.
class Search : public std::unique_ptr<HANDLE, EndSearch> {
  public:
    explicit Search(HANDLE search) : unique_ptr(search == INVALID_HANDLE_VALUE ? nullptr : search) {}
};

class WindowsFiles : public Files {
    void rename(const Bstr& oldPath, const Bstr& newPath) override {
        const auto from = pathOf(oldPath);
        const auto to = pathOf(newPath);
        // The system takes a file's own name for a free one.
        if (from == to && GetFileAttributesW(to.c_str()) != INVALID_FILE_ATTRIBUTES)
            raise(ErrorNumber::FileExists);
        const bool moved =
            MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_COPY_ALLOWED | MOVEFILE_WRITE_THROUGH) != 0;
        const DWORD status = GetLastError();
        lastError() = static_cast<I4>(status);
        if (!moved) raise(fileErrorOf(status));
    }
    void readI2(const Bstr& path, I4 position, I2& number) override {
        // As the run-time opens its files: for reading and writing, else for reading alone.
        const auto name = pathOf(path);
        const auto open = [&](DWORD access, DWORD creation) {
            return OpenedFile(CreateFileW(name.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                          creation, FILE_ATTRIBUTE_NORMAL, nullptr));
        };
        auto file = open(GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS);
        if (!file && GetLastError() == ERROR_ACCESS_DENIED) file = open(GENERIC_READ, OPEN_EXISTING);
        if (!file) raise(fileErrorOf(GetLastError()));
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(position - 1);
        DWORD count = 0;
        const bool read = ReadFile(file.get(), &number, sizeof number, &count, &place) != 0;
        if (!read && GetLastError() != ERROR_HANDLE_EOF) raise(fileErrorOf(GetLastError()));
    }
    void append(const Bstr& path, std::string_view bytes) override {
        const OpenedFile file(CreateFileW(pathOf(path).c_str(), FILE_APPEND_DATA,
                                          FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr));
        if (!file) raise(fileErrorOf(GetLastError()));
        DWORD count = 0;
        succeeded(WriteFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr));
    }
    void changeFolder(const Bstr& path) override {
        const bool changed = SetCurrentDirectoryW(pathOf(path).c_str()) != 0;
        lastError() = static_cast<I4>(GetLastError());
        if (!changed) raise(ErrorNumber::PathNotFound);
    }
    std::vector<Bstr> filesLike(const Bstr& pattern) override {
        constexpr DWORD unusual = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;
        std::vector<Bstr> names;
        WIN32_FIND_DATAW found;
        const Search search(FindFirstFileW(pathOf(pattern).c_str(), &found));
        for (bool more = search != nullptr; more; more = FindNextFileW(search.get(), &found) != 0) {
            const std::wstring_view name = static_cast<const wchar_t*>(found.cFileName);
            if ((found.dwFileAttributes & unusual) == 0) names.emplace_back(utf16(name));
        }
        return names;
    }
    void copy(const Bstr& source, const Bstr& target) override {
        succeeded(CopyFileW(pathOf(source).c_str(), pathOf(target).c_str(), FALSE));
    }
    void remove(const Bstr& path) override { succeeded(DeleteFileW(pathOf(path).c_str())); }
};

}  // namespace

Files& homeFiles() {
    static WindowsFiles port;
    return port;
}

}  // namespace tovera
