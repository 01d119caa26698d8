#include "platform/posix/DetachedProcess.h"

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vistrel::posix {

namespace {

/// Blocks every signal for as long as this lives, so that no handler of the host runs in a copy of
/// the host.
class SignalsBlocked {
  public:
    SignalsBlocked() {
        sigset_t all;
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }

    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;
    SignalsBlocked(SignalsBlocked&&) = delete;
    SignalsBlocked& operator=(SignalsBlocked&&) = delete;

    ~SignalsBlocked() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  private:
    sigset_t before_{};
};

// From here on everything runs in a copy of a host that may have had any number of threads: only
// what may be called in a signal handler is called, and nothing is allocated.

void forgetSignals() {
    struct sigaction standard {};

    standard.sa_handler = SIG_DFL;
    for (int number = 1; number < NSIG; ++number)
        ::sigaction(number, &standard, nullptr);
    sigset_t none;
    ::sigemptyset(&none);
    ::pthread_sigmask(SIG_SETMASK, &none, nullptr);
}

void forgetFiles() {
    const int null = ::open("/dev/null", O_RDWR);
    for (int standard = 0; standard <= 2; ++standard)
        if (::dup2(null, standard) < 0)
            ::close(standard);
    ::close_range(3, ~0U, 0);
}

[[noreturn]] void becomeProgram(char* const* arguments) {
    forgetFiles();
    forgetSignals();
    ::execv(arguments[0], arguments);
    ::_exit(127);
}

/// Ends at once, so that whoever takes in orphans becomes the parent of the program.
[[noreturn]] void beParentOfProgram(char* const* arguments) {
    ::setsid();
    const auto program = ::_Fork();
    if (program == 0)
        becomeProgram(arguments);
    ::_exit(program < 0 ? 1 : 0);
}

} // namespace

bool startDetached(const std::vector<std::string>& arguments) {
    if (arguments.empty())
        return false;
    std::vector<char*> pointers;
    pointers.reserve(arguments.size() + 1);
    for (const auto& argument : arguments)
        pointers.push_back(const_cast<char*>(argument.c_str()));
    pointers.push_back(nullptr);

    const SignalsBlocked blocked;
    const auto parent = ::fork();
    if (parent == 0)
        beParentOfProgram(pointers.data());
    if (parent < 0)
        return false;
    int status = 0;
    while (::waitpid(parent, &status, 0) < 0) {
        // A host that ignores the end of its children, or waits for any of them, leaves none here.
        if (errno != EINTR)
            return true;
    }
    return status == 0;
}

} // namespace vistrel::posix
