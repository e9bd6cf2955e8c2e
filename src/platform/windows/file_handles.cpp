#include "platform/windows/file_handles.h"

#include "platform/windows/wide_text.h"

namespace tovera {

std::wstring pathOf(const Bstr& path) {
    const auto text = beforeNul(path);
    if (text.empty()) raise(ErrorNumber::PathAccess);
    return wide(text);
}

ErrorNumber fileErrorOf(DWORD status) {
    switch (status) {
        case ERROR_FILE_NOT_FOUND:
            return ErrorNumber::FileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_BAD_PATHNAME:
        case ERROR_INVALID_DRIVE:
        case ERROR_DIRECTORY:
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

}  // namespace tovera
