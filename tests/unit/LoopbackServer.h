#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace vistrel {

/// One connection to the server, after its client has asked.
class Connection {
  public:
    Connection(int socket, std::string request) : socket_(socket), request_(std::move(request)) {}

    /// The lines up to the first empty one, or the beginning of them when there is much of them.
    [[nodiscard]] const std::string& request() const { return request_; }

    /// The second word of the first line.
    [[nodiscard]] std::string target() const;

    /// Answers whether the client still takes what it is sent.
    bool send(std::string_view bytes) const;

    /// Ends the connection as a server that has crashed does.
    void reset() const;

    /// Waits until the client has gone. False when it has not within `seconds`.
    [[nodiscard]] bool waitForEnd(double seconds = 30) const;

  private:
    int socket_;
    std::string request_;
};

/// A server on the loopback interface, in a thread of the test's own, that does with each
/// connection what the test says. After that it says no more on it.
class LoopbackServer {
  public:
    using Answer = std::function<void(const Connection&)>;

    explicit LoopbackServer(Answer answer);
    LoopbackServer(const LoopbackServer&) = delete;
    LoopbackServer& operator=(const LoopbackServer&) = delete;
    ~LoopbackServer();

    [[nodiscard]] std::uint16_t port() const { return port_; }

    [[nodiscard]] std::string url(std::string_view path = "/Vistrel.txt",
                                  std::string_view host = "127.0.0.1") const;

    /// All requests so far.
    [[nodiscard]] std::vector<std::string> requests() const;

  private:
    void serve();
    void handle(int socket);

    Answer answer_;
    int listener_;
    std::uint16_t port_;
    mutable std::mutex mutex_;
    std::vector<std::string> requests_;
    std::thread thread_;
};

/// A whole answer. `status` is such as "200 OK"; `headers` are whole lines.
std::string response(std::string_view body, std::string_view status = "200 OK",
                     std::string_view headers = "");

/// A port that nobody listens on, for as long as this lives.
class DeadPort {
  public:
    DeadPort();
    DeadPort(const DeadPort&) = delete;
    DeadPort& operator=(const DeadPort&) = delete;
    ~DeadPort();

    [[nodiscard]] std::uint16_t number() const { return number_; }

  private:
    int socket_;
    std::uint16_t number_;
};

} // namespace vistrel
