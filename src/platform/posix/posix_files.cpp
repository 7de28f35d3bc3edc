#include "platform/posix/posix_files.h"

#include "platform/posix/posix_error.h"
#include "platform/posix/posix_io.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace hourwright::platform {

namespace {

constexpr std::size_t bufferSize = std::size_t{128} * 1024;

class DescriptorWriter : public FileWriter {
public:
    DescriptorWriter(int file, bool owned) : file_(file), owned_(owned) { buffer_.reserve(bufferSize); }
    ~DescriptorWriter() override { closeDescriptor(); }
    DescriptorWriter(const DescriptorWriter&) = delete;
    DescriptorWriter& operator=(const DescriptorWriter&) = delete;

    [[nodiscard]] bool write(std::string_view bytes) override {
        if (file_ < 0)
            return fail(PlatformError::invalidHandle);
        if (error_ != PlatformError::none)
            return false;
        if (bytes.size() > bufferSize - buffer_.size() && !flush())
            return false;
        written_ += bytes.size();
        if (bytes.size() > bufferSize)
            return fail(writeAll(file_, bytes));
        buffer_.append(bytes);
        return true;
    }

    [[nodiscard]] bool canTakeBack() const override {
        struct stat status {};
        return owned_ && file_ >= 0 && ::fstat(file_, &status) == 0 && S_ISREG(status.st_mode);
    }

    [[nodiscard]] bool takeBack(std::uint64_t count) override {
        if (error_ != PlatformError::none)
            return false;
        if (!canTakeBack() || count > written_)
            return fail(PlatformError::invalidParameter);
        if (!flush())
            return false;
        written_ -= count;
        const auto end = static_cast<off_t>(written_);
        if (::ftruncate(file_, end) != 0 || ::lseek(file_, end, SEEK_SET) != end)
            return fail(fromErrno(errno));
        return true;
    }

    [[nodiscard]] bool close() override {
        if (file_ < 0)
            return fail(PlatformError::invalidHandle);
        const bool flushed = error_ == PlatformError::none && flush();
        return closeDescriptor() && flushed;
    }

    [[nodiscard]] PlatformError error() const override { return error_; }

private:
    // Keeps the first error; false when there is one.
    bool fail(PlatformError error) {
        if (error_ == PlatformError::none)
            error_ = error;
        return error_ == PlatformError::none;
    }

    bool flush() {
        const bool written = fail(writeAll(file_, buffer_));
        buffer_.clear();
        return written;
    }

    // A file system on the network may report only now that there was no room.
    bool closeDescriptor() {
        const int file = file_;
        file_ = -1;
        if (file < 0 || !owned_ || ::close(file) == 0 || errno == EINTR)
            return true;
        return fail(fromErrno(errno));
    }

    int file_;
    bool owned_;
    PlatformError error_ = PlatformError::none;
    std::uint64_t written_ = 0; // counts what the buffer holds
    std::string buffer_;
};

// The file itself is to be made, so what was not found is its folder.
PlatformError creationError(int errorNumber) {
    return errorNumber == ENOENT ? PlatformError::pathNotFound : fromErrno(errorNumber);
}

} // namespace

CreatedFile PosixFiles::create(const std::filesystem::path& path) {
    if (path == "-")
        return {.writer = std::make_unique<DescriptorWriter>(STDOUT_FILENO, false)};
    int file = -1;
    do {
        file = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOCTTY, S_IRUSR | S_IWUSR);
    } while (file < 0 && errno == EINTR);
    if (file < 0)
        return {.writer = nullptr, .error = creationError(errno)};
    return {.writer = std::make_unique<DescriptorWriter>(file, true)};
}

} // namespace hourwright::platform
