#include "platform/posix/Download.h"

#include "platform/posix/CurlLibrary.h"
#include "platform/posix/UTF8.h"

#include <cerrno>
#include <csignal>
#include <ctime>
#include <memory>
#include <sys/socket.h>

namespace vistrel::posix {

namespace {

constexpr std::size_t largestText = 1U << 20U;
constexpr long mostRedirections = 10;

/// Keeps the signal of a broken connection from the host for as long as this lives. The library
/// avoids it where it can; told to leave the signals of the process alone, it does no more.
class NoBrokenPipes {
  public:
    NoBrokenPipes() {
        sigset_t pending;
        ::sigemptyset(&signal_);
        ::sigaddset(&signal_, SIGPIPE);
        ::sigpending(&pending);
        isHosts_ = ::sigismember(&pending, SIGPIPE) == 1;
        ::pthread_sigmask(SIG_BLOCK, &signal_, &before_);
    }

    NoBrokenPipes(const NoBrokenPipes&) = delete;
    NoBrokenPipes& operator=(const NoBrokenPipes&) = delete;
    NoBrokenPipes(NoBrokenPipes&&) = delete;
    NoBrokenPipes& operator=(NoBrokenPipes&&) = delete;

    ~NoBrokenPipes() {
        const std::timespec atOnce{};
        while (!isHosts_ && ::sigtimedwait(&signal_, nullptr, &atOnce) < 0 && errno == EINTR) {
        }
        ::pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    }

  private:
    sigset_t signal_{};
    sigset_t before_{};
    bool isHosts_ = false;
};

/// Answers how many bytes were taken; the transfer ends when that is not all of them.
std::size_t take(const char* bytes, std::size_t size, std::size_t count, void* text) {
    auto& body = *static_cast<std::string*>(text);
    const auto length = size * count;
    if (length > largestText - body.size())
        return 0;
    try {
        body.append(bytes, length);
    } catch (...) {
        return 0;
    }
    return length;
}

/// A program that the host starts meanwhile must not inherit the connection.
curl_socket_t openSocket(void* /*client*/, curlsocktype /*purpose*/, curl_sockaddr* address) {
    return ::socket(address->family, address->socktype | SOCK_CLOEXEC, address->protocol);
}

class Request {
  public:
    explicit Request(const CurlLibrary& curl)
        : curl_(curl), handle_(curl.easyInit(), curl.easyCleanup),
          headers_(curl.slistAppend(nullptr, "Cache-Control: no-cache"), curl.slistFreeAll),
          isComplete_(handle_ != nullptr && headers_ != nullptr) {}

    /// nullopt when the request cannot be made as it is meant, or fails.
    std::optional<std::string> body(const std::string& url, std::chrono::milliseconds timeout) {
        std::string text;
        set(CURLOPT_URL, url.c_str());
        // Where redirections lead to as well.
        set(CURLOPT_PROTOCOLS_STR, "http,https");
        set(CURLOPT_FOLLOWLOCATION, 1L);
        set(CURLOPT_MAXREDIRS, mostRedirections);
        set(CURLOPT_FAILONERROR, 1L);
        set(CURLOPT_TIMEOUT_MS, static_cast<long>(timeout.count()));
        set(CURLOPT_NOSIGNAL, 1L);
        set(CURLOPT_OPENSOCKETFUNCTION, openSocket);
        set(CURLOPT_USERAGENT, VISTREL_USER_AGENT);
        set(CURLOPT_HTTPHEADER, headers_.get());
        set(CURLOPT_WRITEFUNCTION, take);
        set(CURLOPT_WRITEDATA, &text);
        if (!isComplete_ || curl_.easyPerform(handle_.get()) != CURLE_OK || !isAnswered())
            return std::nullopt;
        return text;
    }

  private:
    template <typename Value> void set(CURLoption option, Value value) {
        isComplete_ = isComplete_ && curl_.easySetopt(handle_.get(), option, value) == CURLE_OK;
    }

    /// Errors of the server have failed by now. What is left below is no answer yet, such as that
    /// another protocol will be spoken.
    [[nodiscard]] bool isAnswered() const {
        constexpr long ok = 200;
        long status = 0;
        return curl_.easyGetinfo(handle_.get(), CURLINFO_RESPONSE_CODE, &status) == CURLE_OK &&
               status >= ok;
    }

    const CurlLibrary& curl_;
    std::unique_ptr<CURL, decltype(&::curl_easy_cleanup)> handle_;
    std::unique_ptr<curl_slist, decltype(&::curl_slist_free_all)> headers_;
    bool isComplete_;
};

} // namespace

std::optional<std::string> downloadText(const std::string& url, std::chrono::milliseconds timeout) {
    const auto curl = CurlLibrary::load();
    if (!curl)
        return std::nullopt;
    const NoBrokenPipes guard;
    auto text = Request(*curl).body(url, timeout);
    return text && isUTF8(*text) ? std::move(text) : std::nullopt;
}

} // namespace vistrel::posix
