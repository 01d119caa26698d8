#include "platform/cocoa/SearchToolGNUstep.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

namespace vistrel::cocoa::gnustep {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Optional;

namespace fs = std::filesystem;

class SearchToolTest : public ::testing::Test {
  protected:
    void SetUp() override {
        std::string pattern = ::testing::TempDir() + "vistrel-XXXXXX";
        root_ = ::mkdtemp(pattern.data());
        places_ = {.programs = path("bin"), .applications = path("apps"), .desktop = ""};
    }

    void TearDown() override { fs::remove_all(root_); }

    [[nodiscard]] std::string path(const std::string& below) const {
        return (root_ / below).string();
    }

    /// Makes a program that writes its arguments into the file `report`.
    std::string install(const std::string& below) {
        const auto file = root_ / below;
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "#!/bin/sh\nprintf '<%s>' \"$@\" > '" << path("part") << "'\nmv '"
                            << path("part") << "' '" << path("report") << "'\n";
        fs::permissions(file, fs::perms::owner_all);
        return file.string();
    }

    [[nodiscard]] std::vector<std::string> command(std::string_view text,
                                                   std::string_view preferred = {}) const {
        return searchCommand(text, preferred, places_);
    }

    fs::path root_;
    SearchPlaces places_;
};

TEST_F(SearchToolTest, TakesTheFirstThatIsInstalled) {
    EXPECT_THAT(command("x"), IsEmpty());
    const auto finder = install("apps/MDFinder.app/MDFinder");
    EXPECT_THAT(command("x"), ElementsAre(finder));
    const auto finderInPath = install("bin/MDFinder");
    EXPECT_THAT(command("x"), ElementsAre(finderInPath));
    const auto rofi = install("bin/rofi");
    EXPECT_THAT(command("x"), ElementsAre(rofi, "-show", "drun", "-filter", "x"));
    const auto appFinder = install("bin/xfce4-appfinder");
    EXPECT_THAT(command("x"), ElementsAre(appFinder));
    const auto krunner = install("bin/krunner");
    EXPECT_THAT(command("x"), ElementsAre(krunner, "--", "x"));
    const auto own = install("bin/own");
    EXPECT_THAT(command("x", "own"), ElementsAre(own, "x"));
}

TEST_F(SearchToolTest, PassesNoEmptyText) {
    const auto rofi = install("bin/rofi");
    EXPECT_THAT(command(""), ElementsAre(rofi, "-show", "drun"));
    const auto krunner = install("bin/krunner");
    EXPECT_THAT(command(""), ElementsAre(krunner));
    EXPECT_THAT(command("", krunner), ElementsAre(krunner));
}

TEST_F(SearchToolTest, OpensTheOverviewOnlyOfItsOwnDesktop) {
    const auto gdbus = install("bin/gdbus");
    EXPECT_THAT(command("x"), IsEmpty());
    for (const auto* other : {"KDE", "XFCE", "GNOMEISH", "Budgie:Other"}) {
        places_.desktop = other;
        EXPECT_THAT(command("x"), IsEmpty()) << other;
    }
    for (const auto* desktop : {"GNOME", "ubuntu:GNOME", "GNOME:GNOME-Classic"}) {
        places_.desktop = desktop;
        ASSERT_FALSE(command("x").empty()) << desktop;
        EXPECT_EQ(command("x").front(), gdbus);
        EXPECT_EQ(command("x").back(), "<true>");
    }
}

TEST_F(SearchToolTest, FindsAUsersOwnToolByItsPath) {
    const auto own = install("elsewhere/own");
    EXPECT_THAT(command("two words", own), ElementsAre(own, "two words"));
    EXPECT_THAT(command("x", path("elsewhere/missing")), IsEmpty());
    EXPECT_THAT(command("x", "own"), IsEmpty());
}

TEST_F(SearchToolTest, GoesOnWhenTheUsersOwnToolIsMissing) {
    const auto rofi = install("bin/rofi");
    EXPECT_THAT(command("", "missing"), ElementsAre(rofi, "-show", "drun"));
}

TEST_F(SearchToolTest, TakesOnlyWhatCanBeExecuted) {
    const auto rofi = install("bin/rofi");
    fs::permissions(rofi, fs::perms::owner_read);
    fs::create_directories(root_ / "bin" / "krunner");
    EXPECT_THAT(command("x"), IsEmpty());
}

TEST_F(SearchToolTest, LooksThroughTheFoldersInTheirOrder) {
    install("second/rofi");
    places_.programs = path("first") + ":" + path("second");
    EXPECT_EQ(command("").front(), path("second/rofi"));
    install("first/rofi");
    EXPECT_EQ(command("").front(), path("first/rofi"));
}

TEST_F(SearchToolTest, LooksIntoNoRelativeFolder) {
    install("bin/rofi");
    const auto before = fs::current_path();
    fs::current_path(root_ / "bin");
    for (const auto* folders : {"", ":", ".", "::.", "../bin"}) {
        places_.programs = folders;
        EXPECT_THAT(command(""), IsEmpty()) << folders;
    }
    fs::current_path(before);
}

/// With the places of the process, which only its environment can change.
class ShowSearchWindowTest : public SearchToolTest {
  protected:
    void SetUp() override {
        SearchToolTest::SetUp();
        for (const auto* name : {"PATH", "HOME", "XDG_CURRENT_DESKTOP"})
            before_.emplace_back(name, std::getenv(name) != nullptr ? std::getenv(name) : "");
        ::setenv("PATH", path("bin").c_str(), 1);
        ::setenv("HOME", path("home").c_str(), 1);
        ::setenv("XDG_CURRENT_DESKTOP", "", 1);
    }

    void TearDown() override {
        for (const auto& [name, value] : before_)
            ::setenv(name.c_str(), value.c_str(), 1);
        SearchToolTest::TearDown();
    }

    [[nodiscard]] std::string report() const {
        const auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (!fs::exists(root_ / "report") && std::chrono::steady_clock::now() < limit)
            std::this_thread::sleep_for(std::chrono::milliseconds(2));
        std::stringstream text;
        text << std::ifstream(root_ / "report").rdbuf();
        return text.str();
    }

  private:
    std::vector<std::pair<std::string, std::string>> before_;
};

TEST_F(ShowSearchWindowTest, StartsTheToolWithTheTextAsOneArgument) {
    // Without a path to the shell's programs, "mv" is found nowhere.
    const auto tool = root_ / "bin" / "tool";
    fs::create_directories(tool.parent_path());
    std::ofstream(tool) << "#!/bin/sh\nprintf '<%s>' \"$@\" > '" << path("part") << "'\n/bin/mv '"
                        << path("part") << "' '" << path("report") << "'\n";
    fs::permissions(tool, fs::perms::owner_all);
    EXPECT_EQ(showSearchWindow("two words; $HOME", 0, "tool"), std::nullopt);
    EXPECT_EQ(report(), "<two words; $HOME>");
}

TEST_F(ShowSearchWindowTest, SaysInOneLineThatThereIsNone) {
    if (fs::exists("/usr/lib/GNUstep/Applications/MDFinder.app") ||
        fs::exists("/usr/local/lib/GNUstep/Applications/MDFinder.app"))
        GTEST_SKIP() << "one is installed for all users";
    const auto line = showSearchWindow("x", 0, "missing");
    ASSERT_THAT(line, Optional(HasSubstr("No search tool")));
    EXPECT_EQ(line->find('\n'), std::string::npos);
}

} // namespace
} // namespace vistrel::cocoa::gnustep
