#include "LoopbackServer.h"

#include <array>
#include <cstdlib>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

namespace vistrel {

namespace {

constexpr std::size_t longestRequest = 1U << 16U;

/// A socket with a port of its own, which nobody else gets. Answers the port.
std::uint16_t bindToAnyPort(int socket) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t size = sizeof address;
    auto* const general = reinterpret_cast<sockaddr*>(&address);
    if (::bind(socket, general, size) != 0 || ::getsockname(socket, general, &size) != 0)
        std::abort();
    return ntohs(address.sin_port);
}

int newSocket() {
    return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

/// Up to and with the empty line, or the beginning of a long one. The greeting of TLS has none; it
/// begins with a control character.
std::string readRequest(int socket) {
    std::string request;
    std::array<char, 4096> part{};
    while (!request.ends_with("\r\n\r\n") && request.size() < longestRequest) {
        const auto count = ::recv(socket, part.data(), part.size(), 0);
        if (count <= 0)
            break;
        request.append(part.data(), static_cast<std::size_t>(count));
        if (request.front() < 'A')
            break;
    }
    return request;
}

} // namespace

std::string Connection::target() const {
    const auto begin = request_.find(' ') + 1;
    return request_.substr(begin, request_.find(' ', begin) - begin);
}

bool Connection::send(std::string_view bytes) const {
    while (!bytes.empty()) {
        const auto count = ::send(socket_, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

/// The connection ends when the socket is closed; the null device takes its number over.
void Connection::reset() const {
    const linger abrupt{.l_onoff = 1, .l_linger = 0};
    ::setsockopt(socket_, SOL_SOCKET, SO_LINGER, &abrupt, sizeof abrupt);
    const int closed = newSocket();
    ::dup3(closed, socket_, O_CLOEXEC);
    ::close(closed);
}

bool Connection::waitForEnd(double seconds) const {
    pollfd wait{.fd = socket_, .events = POLLIN | POLLRDHUP, .revents = 0};
    char byte = 0;
    return ::poll(&wait, 1, static_cast<int>(seconds * 1000)) == 1 &&
           ::recv(socket_, &byte, 1, 0) <= 0;
}

LoopbackServer::LoopbackServer(Answer answer)
    : answer_(std::move(answer)), listener_(newSocket()), port_(bindToAnyPort(listener_)) {
    ::listen(listener_, SOMAXCONN);
    thread_ = std::thread([this] { serve(); });
}

LoopbackServer::~LoopbackServer() {
    ::shutdown(listener_, SHUT_RDWR);
    thread_.join();
    ::close(listener_);
}

std::string LoopbackServer::url(std::string_view path, std::string_view host) const {
    return std::string("http://")
        .append(host)
        .append(":")
        .append(std::to_string(port_))
        .append(path);
}

std::vector<std::string> LoopbackServer::requests() const {
    const std::lock_guard lock(mutex_);
    return requests_;
}

void LoopbackServer::serve() {
    for (;;) {
        const int socket = ::accept4(listener_, nullptr, nullptr, SOCK_CLOEXEC);
        if (socket < 0)
            return;
        handle(socket);
        ::close(socket);
    }
}

void LoopbackServer::handle(int socket) {
    const Connection connection(socket, readRequest(socket));
    {
        const std::lock_guard lock(mutex_);
        requests_.push_back(connection.request());
    }
    answer_(connection);
    // Closed at once, what the client has not read yet would be lost.
    ::shutdown(socket, SHUT_WR);
    (void)connection.waitForEnd();
}

std::string response(std::string_view body, std::string_view status, std::string_view headers) {
    return std::string("HTTP/1.1 ")
        .append(status)
        .append("\r\nConnection: close\r\nContent-Length: ")
        .append(std::to_string(body.size()))
        .append("\r\n")
        .append(headers)
        .append("\r\n")
        .append(body);
}

DeadPort::DeadPort() : socket_(newSocket()), number_(bindToAnyPort(socket_)) {}

DeadPort::~DeadPort() {
    ::close(socket_);
}

} // namespace vistrel
