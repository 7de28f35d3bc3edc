#include "platform/posix/posix_error.h"

#include <cerrno>

namespace hourwright::platform {

PlatformError fromErrno(int errorNumber) {
    switch (errorNumber) {
    case 0: return PlatformError::none;
    case ENOENT: return PlatformError::fileNotFound;
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP: return PlatformError::pathNotFound;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ETXTBSY: return PlatformError::accessDenied;
    case EBADF: return PlatformError::invalidHandle;
    case ENOMEM: return PlatformError::outOfMemory;
    case EWOULDBLOCK:
    case EBUSY: return PlatformError::locked;
    case EINVAL: return PlatformError::invalidParameter;
    case ENOSPC:
    case EDQUOT:
    case EFBIG: return PlatformError::diskFull;
    case EEXIST: return PlatformError::alreadyExists;
    case EMFILE:
    case ENFILE:
    case ENXIO: return PlatformError::openFailed;
    case EPIPE: return PlatformError::brokenPipe;
    default: return PlatformError::writeFault; // EIO and what else a device may say
    }
}

} // namespace hourwright::platform
