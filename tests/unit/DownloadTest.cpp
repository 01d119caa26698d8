#include "platform/posix/Download.h"
#include "platform/posix/CurlLibrary.h"

#include "LoopbackServer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <map>
#include <netinet/in.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace vistrel::posix {
namespace {

using namespace std::chrono_literals;
using namespace std::string_literals;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::Optional;
using ::testing::SizeIs;
using ::testing::StartsWith;

constexpr std::size_t mebibyte = 1U << 20U;

/// More than all buffers between here and there hold.
constexpr std::size_t muchMoreThanTheLimit = 64 * mebibyte;

LoopbackServer::Answer always(std::string bytes) {
    return [bytes = std::move(bytes)](const Connection& client) { client.send(bytes); };
}

std::string redirection(std::string_view where, std::string_view status = "302 Found") {
    return response("moved", status, "Location: " + std::string(where) + "\r\n");
}

/// Without the proxies that a developer may have set.
class DownloadTest : public ::testing::Test {
  protected:
    void SetUp() override {
        for (const auto* name : {"http_proxy", "https_proxy", "HTTPS_PROXY", "all_proxy",
                                 "ALL_PROXY", "no_proxy", "NO_PROXY"})
            change(name, nullptr);
    }

    void TearDown() override {
        for (const auto& [name, value] : before_)
            set(name.c_str(), value ? value->c_str() : nullptr);
    }

    void change(const char* name, const char* value) {
        const char* const now = std::getenv(name);
        before_.emplace(name, now != nullptr ? std::optional<std::string>(now) : std::nullopt);
        set(name, value);
    }

  private:
    static void set(const char* name, const char* value) {
        value != nullptr ? ::setenv(name, value, 1) : ::unsetenv(name);
    }

    std::map<std::string, std::optional<std::string>> before_;
};

/// Long enough for an answer that comes at once, short enough to wait for.
constexpr auto briefly = 400ms;

std::optional<std::string> downloadedFrom(LoopbackServer::Answer answer) {
    const LoopbackServer server(std::move(answer));
    return downloadText(server.url());
}

std::optional<std::string> brieflyDownloadedFrom(LoopbackServer::Answer answer) {
    const LoopbackServer server(std::move(answer));
    return downloadText(server.url(), briefly);
}

TEST_F(DownloadTest, WaitsForAMinuteUnlessToldOtherwise) {
    EXPECT_EQ(downloadTimeout, 60s);
}

// What is downloaded

TEST_F(DownloadTest, KeepsEveryByteOfTheText) {
    for (const auto& text : {"1.1.2"s, "1.1.2\n"s, " 1.1.2\r\n"s,
                             "\xEF\xBB\xBF"
                             "1.1.2"s,
                             "a\0b"s, "100 %@ %s %n"s, "Grüße, 日本 😀"s})
        EXPECT_EQ(downloadedFrom(always(response(text))), text);
}

TEST_F(DownloadTest, DecodesAsUTF8WhateverTheServerCallsIt) {
    EXPECT_EQ(downloadedFrom(always(
                  response("ü", "200 OK", "Content-Type: text/plain; charset=iso-8859-1\r\n"))),
              "ü");
}

TEST_F(DownloadTest, TakesAnEmptyTextForAText) {
    EXPECT_EQ(downloadedFrom(always(response(""))), "");
    EXPECT_EQ(downloadedFrom(always("HTTP/1.1 204 No Content\r\nConnection: close\r\n\r\n")), "");
}

TEST_F(DownloadTest, TakesATextWithoutALength) {
    EXPECT_EQ(downloadedFrom(always("HTTP/1.0 200 OK\r\n\r\n1.1.2")), "1.1.2");
    EXPECT_EQ(downloadedFrom(always("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n"
                                    "Connection: close\r\n\r\n3\r\n1.1\r\n2\r\n.2\r\n0\r\n\r\n")),
              "1.1.2");
}

TEST_F(DownloadTest, FailsWhereTheServerDoes) {
    for (const auto* status : {"400 Bad Request", "401 Unauthorized", "403 Forbidden",
                               "404 Not Found", "407 Proxy Authentication Required", "410 Gone",
                               "500 Internal Server Error", "503 Service Unavailable"})
        EXPECT_EQ(downloadedFrom(always(response("1.1.2", status))), std::nullopt) << status;
}

TEST_F(DownloadTest, TakesWhatComesWithAnyOtherStatus) {
    for (const auto* status :
         {"200 OK", "203 Non-Authoritative Information", "300 Multiple Choices", "302 Found"})
        EXPECT_EQ(downloadedFrom(always(response("1.1.2", status))), "1.1.2") << status;
}

TEST_F(DownloadTest, TakesUTF8Only) {
    for (const auto& text :
         {"1.1.2\xFF"s, "\xC0\xAE"s, "\xED\xA0\x80"s, "\xF4\x90\x80\x80"s, "1.1.2\xE2\x82"s,
          "\xFF\xFE"
          "1\0"s})
        EXPECT_EQ(downloadedFrom(always(response(text))), std::nullopt)
            << testing::PrintToString(text);
}

TEST_F(DownloadTest, DecompressesNothingSinceItAskedForNothingCompressed) {
    const auto gzip = "\x1F\x8B\x08\0\0\0\0\0\0\3\x33\xD4\x33\xD4\x33\2\0\xF9\x9E\xB2\xCC\5\0\0\0"s;
    const LoopbackServer server(always(response(gzip, "200 OK", "Content-Encoding: gzip\r\n")));
    EXPECT_EQ(downloadText(server.url()), std::nullopt);
    EXPECT_THAT(server.requests(), ElementsAre(Not(HasSubstr("Accept-Encoding"))));
}

// What is asked

TEST_F(DownloadTest, AsksForThePageByTheProductsName) {
    const LoopbackServer server(always(response("")));
    (void)downloadText(server.url("/a%20folder/Vistrel.txt?x=1"));
    ASSERT_THAT(server.requests(), SizeIs(1));
    const auto request = server.requests().front();
    EXPECT_THAT(request, StartsWith("GET /a%20folder/Vistrel.txt?x=1 HTTP/1.1\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nUser-Agent: Vistrel/1.1.2\r\n"));
    EXPECT_THAT(request, HasSubstr("\r\nHost: 127.0.0.1:" + std::to_string(server.port())));
}

TEST_F(DownloadTest, AsksTheServerEachTimeAndRemembersNothing) {
    const LoopbackServer server(always(
        response("1.1.2", "200 OK",
                 "Cache-Control: max-age=3600\r\nETag: \"x\"\r\nSet-Cookie: who=you; Path=/\r\n")));
    EXPECT_EQ(downloadText(server.url()), "1.1.2");
    EXPECT_EQ(downloadText(server.url()), "1.1.2");
    const auto requests = server.requests();
    ASSERT_THAT(requests, SizeIs(2));
    EXPECT_EQ(requests[0], requests[1]);
    EXPECT_THAT(requests[0], HasSubstr("\r\nCache-Control: no-cache\r\n"));
    EXPECT_THAT(requests[1], Not(HasSubstr("Cookie")));
}

TEST_F(DownloadTest, GoesThroughTheProxyOfTheEnvironment) {
    const LoopbackServer proxy(always(response("by proxy")));
    change("http_proxy", proxy.url("").c_str());
    EXPECT_EQ(downloadText("http://server.example/Vistrel.txt"), "by proxy");
    EXPECT_THAT(proxy.requests(),
                ElementsAre(StartsWith("GET http://server.example/Vistrel.txt ")));

    const LoopbackServer server(always(response("direct")));
    change("no_proxy", "127.0.0.1");
    EXPECT_EQ(downloadText(server.url()), "direct");
    EXPECT_THAT(proxy.requests(), SizeIs(1));
}

TEST_F(DownloadTest, FailsWithoutAnAddress) {
    for (const auto* url : {"", "/versions/Vistrel.txt", "http://", "http:///x", "no address"})
        EXPECT_EQ(downloadText(url), std::nullopt) << url;
}

/// Addresses on `server` that are no concern of ours.
std::vector<std::string> otherProtocolsOf(const LoopbackServer& server) {
    const auto address = "://127.0.0.1:" + std::to_string(server.port()) + "/x";
    return {"ftp" + address, "gopher" + address, "dict" + address, "telnet" + address};
}

TEST_F(DownloadTest, UsesTheProtocolsOfTheWebOnly) {
    const LoopbackServer other(always("220 ready\r\n"));
    EXPECT_EQ(downloadText("file:///etc/hostname"), std::nullopt);
    for (const auto& url : otherProtocolsOf(other))
        EXPECT_EQ(downloadText(url, briefly), std::nullopt) << url;
    EXPECT_THAT(other.requests(), IsEmpty());
}

// Redirections

/// Leads from /0 to /1 and so on, and answers on the page with that number.
LoopbackServer::Answer staircase(int last) {
    return [last](const Connection& client) {
        const int step = std::stoi(client.target().substr(1));
        client.send(step == last ? response("1.1.2") : redirection("/" + std::to_string(step + 1)));
    };
}

TEST_F(DownloadTest, FollowsTenRedirectionsAndNoMore) {
    const LoopbackServer ten(staircase(10));
    EXPECT_EQ(downloadText(ten.url("/0")), "1.1.2");
    EXPECT_THAT(ten.requests(), SizeIs(11));
    const LoopbackServer eleven(staircase(11));
    EXPECT_EQ(downloadText(eleven.url("/0")), std::nullopt);
    EXPECT_THAT(eleven.requests(), SizeIs(11));
}

TEST_F(DownloadTest, FollowsEveryKindOfRedirectionToAnotherServer) {
    const LoopbackServer target(always(response("1.1.2")));
    for (const auto* status : {"301 Moved Permanently", "302 Found", "303 See Other",
                               "307 Temporary Redirect", "308 Permanent Redirect"})
        EXPECT_EQ(downloadedFrom(always(redirection(target.url(), status))), "1.1.2") << status;
}

TEST_F(DownloadTest, GivesUpARedirectionInCircles) {
    const LoopbackServer server(always(redirection("/Vistrel.txt")));
    EXPECT_EQ(downloadText(server.url()), std::nullopt);
    EXPECT_THAT(server.requests(), SizeIs(11));
}

TEST_F(DownloadTest, FailsWhereARedirectionLeadsToAnError) {
    const LoopbackServer broken(always(response("gone", "410 Gone")));
    EXPECT_EQ(downloadedFrom(always(redirection(broken.url()))), std::nullopt);
}

TEST_F(DownloadTest, IsLedToProtocolsOfTheWebOnly) {
    EXPECT_EQ(downloadedFrom(always(redirection("file:///etc/hostname"))), std::nullopt);
    const LoopbackServer other(always("220 ready\r\n"));
    for (const auto& where : otherProtocolsOf(other))
        EXPECT_EQ(brieflyDownloadedFrom(always(redirection(where))), std::nullopt) << where;
    EXPECT_THAT(other.requests(), IsEmpty());
}

TEST_F(DownloadTest, IsLedToASecureServer) {
    constexpr char handshake = 0x16;
    const LoopbackServer secure([](const Connection&) {});
    const auto where = "https://127.0.0.1:" + std::to_string(secure.port()) + "/";
    EXPECT_EQ(downloadedFrom(always(redirection(where))), std::nullopt);
    EXPECT_THAT(secure.requests(), ElementsAre(StartsWith(std::string(1, handshake))));
}

// Size

TEST_F(DownloadTest, TakesOneMebibyteAndNoMore) {
    const std::string largest(mebibyte, 'x');
    EXPECT_EQ(downloadedFrom(always(response(largest))), largest);
    EXPECT_EQ(downloadedFrom(always(response(largest + 'x'))), std::nullopt);
}

/// How much of something without an end the client takes.
std::size_t takenOf(std::string_view beginning, const std::string& part) {
    std::size_t taken = 0;
    {
        const LoopbackServer server([&](const Connection& client) {
            client.send(beginning);
            while (taken < muchMoreThanTheLimit && client.send(part))
                taken += part.size();
        });
        EXPECT_EQ(downloadText(server.url()), std::nullopt);
    }
    return taken;
}

TEST_F(DownloadTest, EndsTheConnectionToAServerThatSendsForever) {
    EXPECT_LT(takenOf("HTTP/1.1 200 OK\r\n\r\n", std::string(10000, 'x')), muchMoreThanTheLimit);
    EXPECT_LT(takenOf("HTTP/1.1 404 Not Found\r\n\r\n", std::string(10000, 'x')),
              muchMoreThanTheLimit);
    EXPECT_LT(takenOf("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n",
                      "2710\r\n" + std::string(10000, 'x') + "\r\n"),
              muchMoreThanTheLimit);
}

TEST_F(DownloadTest, EndsTheConnectionToAServerWhoseHeadersHaveNoEnd) {
    EXPECT_LT(takenOf("HTTP/1.1 200 OK\r\n", "X-More: " + std::string(1000, 'x') + "\r\n"),
              muchMoreThanTheLimit);
    EXPECT_LT(takenOf("HTTP/1.1 200 OK\r\nX-More: ", std::string(10000, 'x')),
              muchMoreThanTheLimit);
}

// Broken connections

TEST_F(DownloadTest, FailsWithoutAServer) {
    const DeadPort port;
    EXPECT_EQ(downloadText("http://127.0.0.1:" + std::to_string(port.number()) + "/"),
              std::nullopt);
}

TEST_F(DownloadTest, FailsForAHostThatDoesNotExist) {
    EXPECT_EQ(downloadText("http://quorvix.invalid/Vistrel.txt", 5s), std::nullopt);
}

TEST_F(DownloadTest, FailsWhenTheConnectionBreaks) {
    EXPECT_EQ(downloadedFrom([](const Connection&) {}), std::nullopt);
    EXPECT_EQ(downloadedFrom([](const Connection& client) { client.reset(); }), std::nullopt);
    EXPECT_EQ(downloadedFrom([](const Connection& client) {
                  client.send("HTTP/1.0 200 OK\r\n\r\n1.1.2");
                  client.reset();
              }),
              std::nullopt);
}

TEST_F(DownloadTest, FailsWhenTheTextIsCutOff) {
    EXPECT_EQ(downloadedFrom(always("HTTP/1.1 200 OK\r\nContent-Length: 6\r\n\r\n1.1.2")),
              std::nullopt);
    EXPECT_EQ(downloadedFrom(always("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
                                    "5\r\n1.1.2\r\n")),
              std::nullopt);
}

TEST_F(DownloadTest, FailsWhenTheServerSpeaksSomethingElse) {
    for (const auto* bytes :
         {"1.1.2", "SSH-2.0-x\r\n", "HTTP/1.1 200", "HTTP/9.9 200 OK\r\n\r\nx",
          "HTTP/1.1 101 Switching Protocols\r\n\r\n1.1.2", "HTTP/1.1 100 Continue\r\n\r\n"})
        EXPECT_EQ(downloadedFrom(always(bytes)), std::nullopt) << bytes;
}

// Time

TEST_F(DownloadTest, GivesUpAServerThatSaysNothing) {
    EXPECT_EQ(brieflyDownloadedFrom([](const Connection& client) {
                  (void)client.waitForEnd();
                  client.send(response("1.1.2"));
              }),
              std::nullopt);
}

TEST_F(DownloadTest, GivesUpAServerThatStallsInTheMiddle) {
    EXPECT_EQ(brieflyDownloadedFrom([](const Connection& client) {
                  client.send("HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\n1.1");
                  (void)client.waitForEnd();
                  client.send(".2");
              }),
              std::nullopt);
}

/// Sends something all the time, and is done after far more time than there is.
LoopbackServer::Answer drips(std::string beginning, std::string drop, std::string end) {
    return [=](const Connection& client) {
        client.send(beginning);
        for (int drops = 0; drops < 1000 && client.send(drop); ++drops)
            std::this_thread::sleep_for(10ms);
        client.send(end);
    };
}

TEST_F(DownloadTest, GivesUpAServerThatDrips) {
    EXPECT_EQ(brieflyDownloadedFrom(drips("HTTP/1.0 200 OK\r\n\r\n", "1", ".1.2")), std::nullopt);
    EXPECT_EQ(brieflyDownloadedFrom(drips("HTTP/1.0 200 OK\r\n", "X: y\r\n", "\r\n1.1.2")),
              std::nullopt);
    EXPECT_EQ(brieflyDownloadedFrom(
                  drips("", "HTTP/1.1 100 Continue\r\n\r\n", "HTTP/1.0 200 OK\r\n\r\n1.1.2")),
              std::nullopt);
}

TEST_F(DownloadTest, CountsAllRedirectionsTogether) {
    EXPECT_EQ(brieflyDownloadedFrom([](const Connection& client) {
                  std::this_thread::sleep_for(briefly / 4);
                  const auto step = client.target().size();
                  client.send(step < 20 ? redirection(client.target() + "x") : response("1.1.2"));
              }),
              std::nullopt);
}

// The process around it

std::size_t entriesOf(const char* folder) {
    const auto entries = std::filesystem::directory_iterator(folder);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

void downloadInEveryWay() {
    const DeadPort port;
    (void)downloadText("http://127.0.0.1:" + std::to_string(port.number()) + "/");
    (void)downloadText("http://quorvix.invalid/", 5s);
    const LoopbackServer server(always(response("1.1.2")));
    EXPECT_EQ(downloadText(server.url("/", "localhost")), "1.1.2");
    (void)downloadedFrom(always(response("x", "404 Not Found")));
    (void)downloadedFrom([](const Connection& client) { client.reset(); });
    (void)downloadedFrom(always(redirection("/Vistrel.txt")));
    (void)brieflyDownloadedFrom([](const Connection& client) { (void)client.waitForEnd(); });
}

TEST_F(DownloadTest, LeavesNoFileOpenAndNoThread) {
    downloadInEveryWay(); // Libraries may keep something from their first use on.
    const auto files = entriesOf("/proc/self/fd");
    const auto threads = entriesOf("/proc/self/task");
    downloadInEveryWay();
    EXPECT_EQ(entriesOf("/proc/self/fd"), files);
    // A thread that was waited for may be on the list for a moment longer.
    const auto limit = std::chrono::steady_clock::now() + 20s;
    while (entriesOf("/proc/self/task") > threads && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(2ms);
    EXPECT_EQ(entriesOf("/proc/self/task"), threads);
}

/// What the process does with each signal.
std::vector<sighandler_t> signalActions() {
    std::vector<sighandler_t> all;
    for (int number = 1; number < NSIG; ++number) {
        struct sigaction action {};

        ::sigaction(number, nullptr, &action);
        all.push_back(action.sa_handler);
    }
    return all;
}

/// The signals that a thread of this process blocks, one bit each.
std::uint64_t signalsBlockedIn(pid_t thread) {
    std::ifstream status("/proc/self/task/" + std::to_string(thread) + "/status");
    std::string word;
    while (status >> word && word != "SigBlk:") {
    }
    std::uint64_t blocked = 0;
    status >> std::hex >> blocked;
    return blocked;
}

TEST_F(DownloadTest, LeavesTheSignalsAlone) {
    const auto self = ::gettid();
    const auto actions = signalActions();
    const auto blocked = signalsBlockedIn(self);
    std::vector<sighandler_t> actionsMeanwhile;
    EXPECT_EQ(downloadedFrom([&](const Connection& client) {
                  actionsMeanwhile = signalActions();
                  client.send(response("1.1.2"));
              }),
              "1.1.2");
    EXPECT_EQ(actionsMeanwhile, actions);
    downloadInEveryWay();
    EXPECT_EQ(signalActions(), actions);
    EXPECT_EQ(signalsBlockedIn(self), blocked);
}

TEST_F(DownloadTest, HoldsBackBrokenPipesOnlyWhileItRuns) {
    const auto self = ::gettid();
    const auto before = signalsBlockedIn(self);
    const auto expected = before | 1U << (SIGPIPE - 1);
    ASSERT_NE(before, expected);
    std::uint64_t meanwhile = 0;
    (void)downloadedFrom([&](const Connection&) { meanwhile = signalsBlockedIn(self); });
    EXPECT_EQ(meanwhile, expected);
    EXPECT_EQ(signalsBlockedIn(self), before);
}

TEST_F(DownloadTest, LeavesABrokenPipeOfTheHostPending) {
    sigset_t pipe, before, pending;
    ::sigemptyset(&pipe);
    ::sigaddset(&pipe, SIGPIPE);
    ::pthread_sigmask(SIG_BLOCK, &pipe, &before);
    ::pthread_kill(::pthread_self(), SIGPIPE);
    EXPECT_EQ(downloadedFrom(always(response("1.1.2"))), "1.1.2");
    ::sigpending(&pending);
    EXPECT_EQ(::sigismember(&pending, SIGPIPE), 1);
    const timespec atOnce{};
    ::sigtimedwait(&pipe, nullptr, &atOnce);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

TEST_F(DownloadTest, SurvivesAServerThatHangsUpOnALongRequest) {
    const auto before = std::signal(SIGPIPE, SIG_DFL);
    const LoopbackServer deaf([](const Connection& client) { client.reset(); });
    EXPECT_EQ(downloadText(deaf.url("/" + std::string(4 * mebibyte, 'x'))), std::nullopt);
    std::signal(SIGPIPE, before);
}

/// Sockets of this process that are connected to `port`, and are passed on to programs.
int inheritedConnectionsTo(std::uint16_t port) {
    int found = 0;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const int number = std::stoi(entry.path().filename());
        sockaddr_in peer{};
        socklen_t size = sizeof peer;
        if (::getpeername(number, reinterpret_cast<sockaddr*>(&peer), &size) == 0 &&
            ntohs(peer.sin_port) == port && (::fcntl(number, F_GETFD) & FD_CLOEXEC) == 0)
            ++found;
    }
    return found;
}

TEST_F(DownloadTest, PassesItsConnectionToNoOtherProgram) {
    int inherited = -1;
    std::uint16_t port = 0;
    const LoopbackServer server([&](const Connection& client) {
        inherited = inheritedConnectionsTo(port);
        client.send(response("1.1.2"));
    });
    port = server.port();
    EXPECT_EQ(downloadText(server.url()), "1.1.2");
    EXPECT_EQ(inherited, 0);
}

// The library

TEST(CurlLibraryTest, IsTheFirstThatIsInstalled) {
    EXPECT_FALSE(CurlLibrary::load({"libvistrel-missing.so.4"}));
    EXPECT_FALSE(CurlLibrary::load({"libm.so.6"})) << "another library of that name";
    EXPECT_FALSE(CurlLibrary::load({}));
    EXPECT_TRUE(CurlLibrary::load({"libvistrel-missing.so.4", "libcurl-gnutls.so.4"}));
    EXPECT_TRUE(CurlLibrary::load());
}

} // namespace
} // namespace vistrel::posix
