#include "platform/posix/PropertyListFile.h"
#include "platform/posix/RegularFile.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

/// Whatever becomes of a save, the file holds its old content or the new one.
namespace vistrel {
namespace {

namespace fs = std::filesystem;

constexpr int done = 0;
constexpr int failed = 1;
constexpr int skipped = 77;

/// Runs `work` in a process of its own. Answers its exit status, or minus the signal that ended it.
int inChild(const std::function<int()>& work) {
    const auto child = ::fork();
    if (child == 0)
        ::_exit(work());
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -WTERMSIG(status);
}

/// Runs `work` in a process of its own and kills that at its stop number `number`; each system call
/// makes two, before and after it. Answers whether there was such a stop.
bool killedAtStop(int number, const std::function<void()>& work) {
    const auto child = ::fork();
    if (child == 0) {
        ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
        ::raise(SIGSTOP);
        work();
        ::_exit(done);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    for (int stop = 0; stop < number; ++stop) {
        ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        ::waitpid(child, &status, 0);
        if (WIFEXITED(status))
            return false;
    }
    ::kill(child, SIGKILL);
    ::waitpid(child, &status, 0);
    return true;
}

class DiskFaults : public testing::Test {
  protected:
    void SetUp() override {
        // In memory where possible: what is flushed thousands of times need not reach a disk.
        std::string pattern = fs::is_directory("/dev/shm") ? "/dev/shm" : testing::TempDir();
        pattern += "/vistrel-XXXXXX";
        folder = ::mkdtemp(pattern.data());
        path = folder + "/Settings.plist";
    }

    void TearDown() override { fs::remove_all(folder); }

    void store(const std::string& content) const { std::ofstream(path) << content; }

    [[nodiscard]] std::string stored() const {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    [[nodiscard]] std::ptrdiff_t filesInFolder() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    const std::string oldContent = std::string(5000, 'o');
    const std::string newContent = std::string(7000, 'n');
    std::string folder;
    std::string path;
};

TEST_F(DiskFaults, AKillAtAnySystemCallLeavesTheOldContentOrTheNew) {
    bool isOld = false;
    bool isNew = false;
    for (int stop = 1;; ++stop) {
        store(oldContent);
        if (!killedAtStop(stop, [this] { posix::replaceFile(path, newContent); }))
            break;
        const auto content = stored();
        ASSERT_TRUE(content == oldContent || content == newContent) << "at stop " << stop;
        isOld = isOld || content == oldContent;
        isNew = isNew || content == newContent;
        ASSERT_LE(filesInFolder(), 2) << "at stop " << stop;
        ASSERT_TRUE(posix::replaceFile(path, "next"));
        ASSERT_EQ(stored(), "next");
        ASSERT_EQ(filesInFolder(), 1) << "left behind by a kill at stop " << stop;
    }
    EXPECT_TRUE(isOld && isNew);
}

TEST_F(DiskFaults, AWriteThatEndsInTheMiddleLeavesTheOldContent) {
    store(oldContent);
    const auto status = inChild([this] {
        std::signal(SIGXFSZ, SIG_IGN);
        const ::rlimit limit{.rlim_cur = 6000, .rlim_max = 6000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        return posix::replaceFile(path, newContent) ? done : failed;
    });
    EXPECT_EQ(status, failed);
    EXPECT_EQ(stored(), oldContent);
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(DiskFaults, AFullDiskLeavesTheOldContent) {
    const auto status = inChild([this] {
        if (::unshare(CLONE_NEWNS) != 0 ||
            ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            ::mount("none", folder.c_str(), "tmpfs", 0, "size=12k") != 0)
            return skipped;
        store(oldContent);
        const bool isReplaced = posix::replaceFile(path, std::string(20000, 'n'));
        return !isReplaced && stored() == oldContent && filesInFolder() == 1 ? done : failed;
    });
    if (status == skipped)
        GTEST_SKIP() << "this account may not mount a small disk";
    EXPECT_EQ(status, done);
}

TEST_F(DiskFaults, AFolderThatMayNotBeWrittenKeepsTheOldContent) {
    store(oldContent);
    fs::permissions(folder, fs::perms(0555));
    const auto status = inChild([this] {
        constexpr ::uid_t nobody = 65534;
        if (::geteuid() == 0 && ::setuid(nobody) != 0)
            return skipped;
        return posix::replaceFile(path, newContent) ? done : failed;
    });
    fs::permissions(folder, fs::perms(0755));
    EXPECT_EQ(status, failed);
    EXPECT_EQ(stored(), oldContent);
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(DiskFaults, AFolderThatIsMissingIsNotMade) {
    EXPECT_FALSE(posix::replaceFile(folder + "/missing/Settings.plist", newContent));
    EXPECT_EQ(filesInFolder(), 0);
}

TEST_F(DiskFaults, AFolderInTheFilesPlaceStays) {
    fs::create_directories(path + "/inside");
    EXPECT_FALSE(posix::replaceFile(path, newContent));
    EXPECT_TRUE(fs::is_directory(path + "/inside"));
    EXPECT_EQ(filesInFolder(), 1);
}

TEST_F(DiskFaults, WhateverHasTheTemporaryNameIsNoHindrance) {
    fs::create_directory(path + ".new");
    EXPECT_TRUE(posix::replaceFile(path, "first"));
    fs::remove(path + ".new");
    fs::create_symlink("elsewhere", path + ".new");
    EXPECT_TRUE(posix::replaceFile(path, "second"));
    EXPECT_FALSE(fs::exists(folder + "/elsewhere"));
    fs::remove(path + ".new");
    ASSERT_EQ(::mkfifo((path + ".new").c_str(), 0600), 0);
    EXPECT_TRUE(posix::replaceFile(path, "third"));
    EXPECT_EQ(stored(), "third");
}

TEST_F(DiskFaults, WhatAKilledWriterLeftIsNotInTheNewContent) {
    std::ofstream(path + ".new") << std::string(100000, 'x');
    fs::permissions(path + ".new", fs::perms(0666));
    ASSERT_TRUE(posix::replaceFile(path, newContent));
    EXPECT_EQ(stored(), newContent);
    EXPECT_EQ(fs::status(path).permissions(), fs::perms(0600));
    EXPECT_EQ(filesInFolder(), 1);
}

/// What eight hosts do that save at once: each reads, changes and writes.
TEST_F(DiskFaults, EightWritersAtOnceLeaveAWholeFileAtAnyTime) {
    constexpr int writers = 8;
    constexpr int saves = 1000;
    const auto write = [this](int writer, int save) {
        auto dictionary = posix::readPropertyListFile(path);
        if (!dictionary || dictionary->find("stranger") == nullptr)
            return false;
        dictionary->set("globalSettingsIndex", std::int64_t{writer} * saves + save);
        posix::writePropertyListFile(*dictionary, path);
        return true;
    };
    posix::writePropertyListFile({{"stranger", std::string(3000, 's')}}, path);
    std::vector<::pid_t> children;
    for (int writer = 0; writer < writers; ++writer) {
        children.push_back(::fork());
        if (children.back() != 0)
            continue;
        bool isWhole = true;
        for (int save = 0; isWhole && save < saves; ++save)
            isWhole = write(writer, save);
        ::_exit(isWhole ? done : failed);
    }
    for (const auto child : children) {
        int status = -1;
        ::waitpid(child, &status, 0);
        EXPECT_EQ(status, done);
    }
    const auto last = posix::readPropertyListFile(path);
    ASSERT_TRUE(last);
    EXPECT_EQ(*last->find("stranger"), PropertyList(std::string(3000, 's')));
    EXPECT_EQ(filesInFolder(), 1);
}

} // namespace
} // namespace vistrel
