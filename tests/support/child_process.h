#pragma once

#include <functional>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hourwright::test {

/// Runs the work in a child process, which ends with success when it returns true.
inline pid_t inChild(const std::function<bool()>& work) {
    const pid_t child = fork();
    if (child == 0)
        _exit(work() ? 0 : 1);
    return child;
}

/// Waits for the child; true when its work returned true.
inline bool succeeded(pid_t child) {
    int status = 0;
    return waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

/// A pipe to signal between processes or to feed an input.
class Pipe {
public:
    Pipe() { valid_ = pipe(ends_) == 0; }
    ~Pipe() {
        closeInput();
        closeOutput();
    }
    Pipe(const Pipe&) = delete;
    Pipe& operator=(const Pipe&) = delete;

    [[nodiscard]] bool valid() const { return valid_; }
    /// The end to write to.
    [[nodiscard]] int input() const { return ends_[1]; }
    /// The end to read from.
    [[nodiscard]] int output() const { return ends_[0]; }
    void closeInput() { closeEnd(ends_[1]); }
    void closeOutput() { closeEnd(ends_[0]); }

private:
    static void closeEnd(int& end) {
        if (end >= 0)
            close(end);
        end = -1;
    }

    int ends_[2] = {-1, -1};
    bool valid_ = false;
};

} // namespace hourwright::test
