#include "platform/linux/files/file_errors.h"

#include <cerrno>

#include "frame/last_error.h"

namespace tovera {

ErrorNumber fileErrorOf(int systemError) {
    switch (systemError) {
        case ENOENT:
            return ErrorNumber::FileNotFound;
        case EEXIST:
        case ENOTEMPTY:
            return ErrorNumber::FileExists;
        case ENOTDIR:
            return ErrorNumber::PathNotFound;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return ErrorNumber::DiskFull;
        case EACCES:
        case EPERM:
        case EROFS:
        case ETXTBSY:
            return ErrorNumber::PermissionDenied;
        case EIO:
            return ErrorNumber::DeviceError;
        default:
            return ErrorNumber::PathAccess;
    }
}

void raiseFileError(int systemError) {
    lastError() = systemError;
    raise(fileErrorOf(systemError));
}

}  // namespace tovera
