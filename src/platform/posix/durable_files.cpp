#include "platform/posix/durable_files.h"

#include "platform/posix/instance_socket.h"
#include "platform/posix/posix_error.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace hourwright::platform {

namespace {

constexpr std::size_t pieceSize = std::size_t{1} << 20;
constexpr const char* lockName = ".lock";

// A pipe in the place of a file is opened at once, too.
Descriptor openToRead(const std::filesystem::path& path, int flags = 0) {
    int file = -1;
    do {
        file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | flags);
    } while (file < 0 && errno == EINTR);
    return Descriptor(file);
}

bool isRegular(const Descriptor& file) {
    struct stat status {};
    return ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
}

PlatformError outcome(int result) {
    return result == 0 ? PlatformError::none : fromErrno(errno);
}

PlatformError syncOpened(const Descriptor& file) {
    if (!file)
        return fromErrno(errno);
    int result = 0;
    do {
        result = ::fsync(file.get());
    } while (result != 0 && errno == EINTR);
    return outcome(result);
}

} // namespace

PlatformError syncFile(const std::filesystem::path& file) {
    return syncOpened(openToRead(file));
}

PlatformError syncFolder(const std::filesystem::path& folder) {
    return syncOpened(openToRead(folder, O_DIRECTORY));
}

void forgetCached(const std::filesystem::path& path) {
    if (const Descriptor file = openToRead(path))
        ::posix_fadvise(file.get(), 0, 0, POSIX_FADV_DONTNEED);
}

PlatformError readFile(const std::filesystem::path& path, const std::function<bool(std::span<const std::byte>)>& take) {
    const Descriptor file = openToRead(path);
    if (!file)
        return fromErrno(errno);
    if (!isRegular(file))
        return PlatformError::openFailed;
    std::vector<std::byte> buffer(pieceSize);
    while (true) {
        const ssize_t count = ::read(file.get(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return errno == EIO ? PlatformError::readFault : fromErrno(errno);
        if (count == 0 || !take(std::span(buffer).first(static_cast<std::size_t>(count))))
            return PlatformError::none;
    }
}

PlatformError renameFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    return outcome(::rename(from.c_str(), to.c_str()));
}

PlatformError linkFile(const std::filesystem::path& from, const std::filesystem::path& to) {
    return outcome(::link(from.c_str(), to.c_str()));
}

std::optional<FolderLock> FolderLock::take(const std::filesystem::path& folder, PlatformError& error) {
    error = PlatformError::none;
    FolderLock lock(::open((folder / lockName).c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR));
    if (lock.file_ < 0 || ::flock(lock.file_, LOCK_EX | LOCK_NB) != 0) {
        error = fromErrno(errno);
        return std::nullopt;
    }
    return lock;
}

FolderLock::FolderLock(FolderLock&& other) noexcept : file_(std::exchange(other.file_, -1)) {}

FolderLock::~FolderLock() {
    if (file_ >= 0)
        ::close(file_);
}

} // namespace hourwright::platform
