#include "platform/files.h"

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
};

}  // namespace

Files& homeFiles() {
    static WindowsFiles port;
    return port;
}

}  // namespace tovera
