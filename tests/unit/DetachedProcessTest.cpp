#include "platform/posix/DetachedProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vistrel::posix {
namespace {

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// A folder of its own, with a program that writes down how it was started.
class DetachedProcessTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = ::testing::TempDir() + "vistrel-XXXXXX";
        folder_ = ::mkdtemp(pattern.data());
    }

    void TearDown() override { std::filesystem::remove_all(folder_); }

    /// A script whose output appears, whole, in report().
    std::string program(const std::string& body) {
        const auto path = folder_ / "program";
        std::ofstream(path) << "#!/bin/sh\n{ " << body << "\n} > '" << (folder_ / "part").string()
                            << "'\nmv '" << (folder_ / "part").string() << "' '"
                            << (folder_ / "report").string() << "'\n";
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        return path.string();
    }

    std::string report() {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!std::filesystem::exists(folder_ / "report")) {
            if (std::chrono::steady_clock::now() > limit)
                return "no report";
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        }
        std::stringstream text;
        text << std::ifstream(folder_ / "report").rdbuf();
        return text.str();
    }

    std::filesystem::path folder_;
};

TEST_F(DetachedProcessTest, PassesEveryArgumentAsItIs) {
    const auto path = program(R"(for argument; do printf '<%s>\n' "$argument"; done)");
    EXPECT_TRUE(startDetached({path, "two words", "", "$HOME `id` \"'", "-n", "ü"}));
    EXPECT_EQ(report(), "<two words>\n<>\n<$HOME `id` \"'>\n<-n>\n<ü>\n");
}

TEST_F(DetachedProcessTest, LeavesNoChild) {
    EXPECT_TRUE(startDetached({program("echo done")}));
    EXPECT_EQ(report(), "done\n");
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(DetachedProcessTest, IsInASessionOfItsOwn) {
    EXPECT_TRUE(startDetached({program("cut -d' ' -f 6 /proc/self/stat")}));
    EXPECT_NE(std::stoi(report()), ::getsid(0));
}

TEST_F(DetachedProcessTest, InheritsNoFile) {
    const int leak = ::open("/dev/zero", O_RDONLY);
    EXPECT_TRUE(startDetached({program("readlink /proc/$$/fd/* | sort -u; ls /proc/$$/fd")}));
    ::close(leak);
    // The shell itself opens its script, and the report as its standard output.
    const auto text = report();
    EXPECT_THAT(text, HasSubstr("/dev/null"));
    EXPECT_THAT(text, ::testing::Not(HasSubstr("/dev/zero")));
}

void handle(int /*number*/) {}

/// The lines of /proc/self/status on blocked, ignored and caught signals.
std::string signalsOf(const std::string& report) {
    std::istringstream lines(report);
    std::string line, all;
    while (std::getline(lines, line))
        if (line.starts_with("SigBlk") || line.starts_with("SigIgn"))
            all += line.substr(line.find_first_not_of('\t', 7)) + ' ';
    return all;
}

TEST_F(DetachedProcessTest, StartsWithTheSignalsOfNobody) {
    const auto ignoredBefore = std::signal(SIGUSR1, SIG_IGN);
    const auto handledBefore = std::signal(SIGUSR2, handle);
    sigset_t blocked, before;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &blocked, &before);

    EXPECT_TRUE(startDetached({program("cat /proc/self/status")}));

    sigset_t after;
    ::sigprocmask(SIG_SETMASK, &before, &after);
    EXPECT_EQ(::sigismember(&after, SIGTERM), 1) << "the caller's own mask";
    EXPECT_EQ(::sigismember(&after, SIGINT), 0) << "the caller's own mask";
    EXPECT_EQ(std::signal(SIGUSR1, ignoredBefore), SIG_IGN);
    EXPECT_EQ(std::signal(SIGUSR2, handledBefore), handle);
    EXPECT_EQ(signalsOf(report()), "0000000000000000 0000000000000000 ");
}

TEST_F(DetachedProcessTest, WorksForACallerThatIgnoresTheEndOfItsChildren) {
    const auto before = std::signal(SIGCHLD, SIG_IGN);
    EXPECT_TRUE(startDetached({program("echo done")}));
    EXPECT_EQ(std::signal(SIGCHLD, before), SIG_IGN);
    EXPECT_EQ(report(), "done\n");
}

TEST_F(DetachedProcessTest, OutlivesNothingWhenThereIsNoProgram) {
    EXPECT_TRUE(startDetached({(folder_ / "missing").string()}));
    EXPECT_FALSE(startDetached({}));
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

} // namespace
} // namespace vistrel::posix
