#include "tool/BoundedProcess.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vistrel::tool {

namespace {

[[noreturn]] void become(char* const* arguments, const char* log) {
    ::setsid();
    const int null = ::open("/dev/null", O_RDONLY);
    const int output = ::open(log, O_WRONLY | O_CREAT | O_APPEND, 0600);
    if (null < 0 || output < 0 || ::dup2(null, 0) < 0 || ::dup2(output, 1) < 0 ||
        ::dup2(output, 2) < 0)
        ::_exit(127);
    ::close_range(3, ~0U, 0);
    ::execv(arguments[0], arguments);
    ::_exit(127);
}

/// A descriptor that can be read from when the process has ended.
int descriptorOf(pid_t process) {
    return static_cast<int>(::syscall(SYS_pidfd_open, process, 0));
}

/// Whether the process ended within `limit`.
bool endsWithin(pid_t process, std::chrono::milliseconds limit) {
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + limit;
    const int descriptor = descriptorOf(process);
    if (descriptor < 0)
        return false;
    int ready = 0;
    do {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
        pollfd ended{.fd = descriptor, .events = POLLIN, .revents = 0};
        ready = ::poll(&ended, 1, left.count() > 0 ? static_cast<int>(left.count()) : 0);
    } while (ready < 0 && errno == EINTR);
    ::close(descriptor);
    return ready > 0;
}

} // namespace

std::optional<ProcessEnd> runBounded(const std::vector<std::string>& command,
                                     const std::string& log, std::chrono::milliseconds limit) {
    std::vector<char*> pointers;
    pointers.reserve(command.size() + 1);
    for (const auto& argument : command)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);

    const auto process = ::fork();
    if (process == 0)
        become(pointers.data(), log.c_str());
    if (process < 0)
        return std::nullopt;
    ProcessEnd end{.isOverdue = !endsWithin(process, limit)};
    if (end.isOverdue)
        ::kill(process, SIGKILL);
    int status = 0;
    while (::waitpid(process, &status, 0) < 0)
        if (errno != EINTR)
            return std::nullopt;
    if (WIFEXITED(status))
        end.code = WEXITSTATUS(status);
    else
        end.signal = WTERMSIG(status);
    return end;
}

} // namespace vistrel::tool
