#include "ratios/child.h"

#include <chrono>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hourwright::bench {

namespace {

[[noreturn]] void becomeChild(const std::vector<std::string>& command, int input) {
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(input, STDIN_FILENO);
    ::dup2(nowhere, STDOUT_FILENO);
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    ::execvp(arguments[0], arguments.data());
    ::_exit(127);
}

} // namespace

Cost runChild(const std::vector<std::string>& command, const std::string& input) {
    int pipe[2];
    if (::pipe2(pipe, O_CLOEXEC) != 0)
        return {.failed = true};
    const auto start = std::chrono::steady_clock::now();
    const pid_t child = ::fork();
    if (child == 0)
        becomeChild(command, pipe[0]);
    ::close(pipe[0]);
    const bool given = input.empty() || ::write(pipe[1], input.data(), input.size()) == ssize_t(input.size());
    ::close(pipe[1]);
    int status = 0;
    rusage usage{};
    ::wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    return {.seconds = taken.count(),
            .peakMegabytes = static_cast<double>(usage.ru_maxrss) / 1024,
            .failed = !given || !WIFEXITED(status) || WEXITSTATUS(status) != 0};
}

} // namespace hourwright::bench
