#include "platform/posix/flock_mutex.h"

#include <cerrno>
#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace hourwright::platform {

namespace {

bool isPlain(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '.' || c == '-' ||
           c == '_';
}

// Different names give different files, none of them in another folder.
std::string fileName(std::string_view name) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string safe;
    for (const char c : name) {
        if (isPlain(c)) {
            safe.push_back(c);
            continue;
        }
        const auto byte = static_cast<unsigned char>(c);
        safe.push_back('%');
        safe.push_back(digits[byte >> 4]);
        safe.push_back(digits[byte & 15]);
    }
    return safe + ".lock";
}

class FlockMutex : public NamedMutex {
public:
    FlockMutex(const std::filesystem::path& directory, std::string_view name)
        : directory_(directory), path_(directory / fileName(name)) {}
    ~FlockMutex() override { release(); }
    FlockMutex(const FlockMutex&) = delete;
    FlockMutex& operator=(const FlockMutex&) = delete;

    [[nodiscard]] bool lock() override {
        if (depth_ == 0 && !acquire())
            return false;
        ++depth_;
        return true;
    }

    void unlock() override {
        if (depth_ > 0 && --depth_ == 0)
            release();
    }

private:
    bool acquire() {
        ::mkdir(directory_.c_str(), S_IRWXU); // most often it is there already
        file_ = ::open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
        if (file_ < 0)
            return false;
        int result = 0;
        do {
            result = ::flock(file_, LOCK_EX);
        } while (result != 0 && errno == EINTR);
        if (result != 0)
            release();
        return result == 0;
    }

    // Closing alone would leave the lock with a child process that has inherited the open file.
    void release() {
        if (file_ < 0)
            return;
        ::flock(file_, LOCK_UN);
        ::close(file_);
        file_ = -1;
    }

    std::filesystem::path directory_;
    std::filesystem::path path_;
    int file_ = -1;
    int depth_ = 0;
};

} // namespace

std::unique_ptr<NamedMutex> makeNamedMutex(const std::filesystem::path& directory, std::string_view name) {
    return std::make_unique<FlockMutex>(directory, name);
}

} // namespace hourwright::platform
