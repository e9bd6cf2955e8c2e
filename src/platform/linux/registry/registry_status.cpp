#include "platform/linux/registry/registry_status.h"

#include <cerrno>

namespace tovera::registryStatus {

I4 ofSystemError(int error) {
    switch (error) {
        case ENOMEM:
            return notEnoughMemory;
        case EACCES:
        case EPERM:
        case EROFS:
            return accessDenied;
        case ENOSPC:
        case EDQUOT:
        case EFBIG:
            return diskFull;
        default:
            return cannotWrite;
    }
}

}  // namespace tovera::registryStatus
