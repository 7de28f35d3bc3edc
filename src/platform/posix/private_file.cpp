#include "platform/posix/private_file.h"

#include "platform/posix/posix_error.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hourwright::platform {

PlatformError createPrivateFile(const std::filesystem::path& path) {
    const int file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (file < 0)
        return errno == EEXIST ? PlatformError::none : fromErrno(errno);
    ::close(file);
    return PlatformError::none;
}

void keepNewFilesPrivate() {
    ::umask(S_IRWXG | S_IRWXO);
}

} // namespace hourwright::platform
