#include "platform/posix/file_replacement.h"

#include "platform/posix/instance_socket.h"
#include "platform/posix/posix_error.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace hourwright::platform {

namespace {

namespace fs = std::filesystem;

// True when a new file may stand in the place of what has the name: nothing, or a file of this user's that may be
// written. Its permissions are stored.
bool isReplaceable(const fs::path& name, mode_t& permissions) {
    struct stat status {};
    if (::lstat(name.c_str(), &status) != 0)
        return errno == ENOENT;
    permissions = status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO);
    return S_ISREG(status.st_mode) && status.st_uid == ::geteuid() && status.st_nlink == 1 &&
           ::access(name.c_str(), W_OK) == 0;
}

// Not every file system can do this; the file is complete under either name.
void synchroniseFolder(const fs::path& folder) {
    const Descriptor opened(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (opened)
        ::fsync(opened.get());
}

} // namespace

FileReplacement::FileReplacement(fs::path name) : name_(std::move(name)), path_(name_) {
    mode_t permissions = S_IRUSR | S_IWUSR;
    if (name_ == "-" || !name_.has_filename() || !isReplaceable(name_, permissions))
        return;
    std::string made = (name_.parent_path() / ".hourwright-XXXXXX").string();
    const Descriptor file(::mkostemp(made.data(), O_CLOEXEC));
    if (file && ::fchmod(file.get(), permissions) == 0)
        path_ = made;
    else if (file)
        ::unlink(made.c_str());
    else if (errno != EACCES && errno != EPERM && errno != EROFS && errno != ENOENT)
        error_ = fromErrno(errno);
}

FileReplacement::~FileReplacement() {
    if (isApart())
        ::unlink(path_.c_str());
}

PlatformError FileReplacement::keep() {
    if (!isApart())
        return PlatformError::none;
    const Descriptor file(::open(path_.c_str(), O_RDONLY | O_CLOEXEC));
    if (!file || ::fsync(file.get()) != 0 || ::rename(path_.c_str(), name_.c_str()) != 0)
        return fromErrno(errno);
    path_ = name_;
    synchroniseFolder(name_.parent_path());
    return PlatformError::none;
}

} // namespace hourwright::platform
