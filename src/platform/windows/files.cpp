#include "platform/files.h"

#include <memory>
#include <string>

#include "frame/error.h"
#include "frame/last_error.h"
#include "platform/windows/system.h"

namespace tovera {
namespace {

std::wstring pathOf(const Bstr& path) {
    const auto text = beforeNul(path);
    if (text.empty()) raise(ErrorNumber::PathAccess);
    return {text.begin(), text.end()};
}

ErrorNumber errorOf(DWORD status) {
    switch (status) {
        case ERROR_FILE_NOT_FOUND:
            return ErrorNumber::FileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_BAD_PATHNAME:
        case ERROR_INVALID_DRIVE:
            return ErrorNumber::PathNotFound;
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
            return ErrorNumber::FileExists;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return ErrorNumber::DiskFull;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
            return ErrorNumber::PermissionDenied;
        default:
            return ErrorNumber::PathAccess;
    }
}

/// An open file, closed at the end; null for one that can't be opened.
struct CloseFile {
    using pointer = HANDLE;
    void operator()(HANDLE file) const { CloseHandle(file); }
};
class OpenedFile : public std::unique_ptr<HANDLE, CloseFile> {
  public:
    explicit OpenedFile(HANDLE file) : unique_ptr(file == INVALID_HANDLE_VALUE ? nullptr : file) {}
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
        if (!moved) raise(errorOf(status));
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
        if (!file) raise(errorOf(GetLastError()));
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(position - 1);
        DWORD count = 0;
        const bool read = ReadFile(file.get(), &number, sizeof number, &count, &place) != 0;
        if (!read && GetLastError() != ERROR_HANDLE_EOF) raise(errorOf(GetLastError()));
    }
};

}  // namespace

Files& homeFiles() {
    static WindowsFiles port;
    return port;
}

}  // namespace tovera
