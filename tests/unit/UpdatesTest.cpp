#include "TestHost.h"

namespace vistrel {
namespace {

using testing::ElementsAre;

class UpdateCheck : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        it.load();
        it.host.calls.lines.clear();
        it.host.acceptsAlerts = false;
    }

    void check(std::optional<std::string> first, std::optional<std::string> second) {
        it.host.web().answers = {std::move(first), std::move(second)};
        it.corvane.m->updates();
    }

    [[nodiscard]] const Alert& onlyAlert() const {
        EXPECT_EQ(it.host.alerts.size(), 1);
        return it.host.alerts.at(0);
    }

    void expectUpdateIsOffered() const {
        EXPECT_EQ(onlyAlert().title, "Update available");
        EXPECT_EQ(onlyAlert().message, "Do you want to download it now?");
        EXPECT_EQ(onlyAlert().defaultButton, "Download");
        EXPECT_EQ(onlyAlert().alternateButton, "Cancel");
    }

    [[nodiscard]] std::vector<std::string> openedPages() const {
        std::vector<std::string> pages;
        for (const auto& line : it.host.calls.lines)
            if (line.starts_with("openURL "))
                pages.push_back(line.substr(8));
        return pages;
    }
};

const std::string versionFileAddress = "http://main.example/versions/Vistrel.txt";

TEST_F(UpdateCheck, EmptiesTheCacheOnceAndDownloadsTwiceBeforeItTells) {
    check("1.1.2", "1.1.2");
    EXPECT_THAT(
        it.host.calls.lines,
        ElementsAre("removeAllCachedResponses", "textAtURL " + versionFileAddress,
                    "textAtURL " + versionFileAddress, "localizedString You're up to date!",
                    "localizedString Your copy of Quorvix's Vistrel is currently the latest "
                    "version available.",
                    "runAlert \"You're up to date!\" \"Your copy of Quorvix's Vistrel is currently "
                    "the latest version available.\" [OK] []"));
}

TEST_F(UpdateCheck, SaysThatACopyOfThisVersionIsUpToDate) {
    check("1.1.2", "1.1.2");
    EXPECT_EQ(onlyAlert().title, "You're up to date!");
    EXPECT_EQ(onlyAlert().message,
              "Your copy of Quorvix's Vistrel is currently the latest version available.");
    EXPECT_EQ(onlyAlert().defaultButton, "OK");
    EXPECT_EQ(onlyAlert().alternateButton, "");
}

TEST_F(UpdateCheck, SaysWhenTheServerCannotBeReachedAndAsksItOnce) {
    check(std::nullopt, "1.1.2");
    EXPECT_EQ(onlyAlert().title, "Error!");
    EXPECT_EQ(onlyAlert().message, "Unable to check for updates. Please check your internet "
                                   "connection and try again later.");
    EXPECT_EQ(onlyAlert().defaultButton, "OK");
    EXPECT_EQ(onlyAlert().alternateButton, "");
    EXPECT_EQ(it.host.calls.lines[0], "removeAllCachedResponses");
    EXPECT_EQ(std::ranges::count(it.host.calls.lines, "textAtURL " + versionFileAddress), 1);
}

TEST_F(UpdateCheck, ComparesTheSecondDownloadOnly) {
    check("9.9.9", "1.1.2");
    EXPECT_EQ(onlyAlert().title, "You're up to date!");
}

TEST_F(UpdateCheck, OffersTheDownloadWhenOnlyTheSecondDownloadDiffers) {
    check("1.1.2", "1.1.3");
    expectUpdateIsOffered();
}

TEST_F(UpdateCheck, OffersTheDownloadWhenTheSecondDownloadFails) {
    check("1.1.2", std::nullopt);
    expectUpdateIsOffered();
}

class OtherText : public UpdateCheck, public testing::WithParamInterface<std::string> {};

TEST_P(OtherText, IsAnUpdate) {
    check(GetParam(), GetParam());
    expectUpdateIsOffered();
}

INSTANTIATE_TEST_SUITE_P(Texts, OtherText,
                         testing::Values("1.1.3", "1.1.1", "2", "1.1.2\n", "1.1.2\r\n", " 1.1.2",
                                         "1.1.2 ", "", "01.1.2", "1.1.2.0", "v1.1.2",
                                         std::string("1.1.2\0", 6),
                                         "\xEF\xBB\xBF"
                                         "1.1.2",
                                         "100 % %@ %s %n"));

TEST_F(UpdateCheck, OpensTheReleaseNotesWhenTheUserAccepts) {
    it.host.acceptsAlerts = true;
    check("2", "2");
    EXPECT_THAT(openedPages(), ElementsAre("http://blog.example/vistrel"));
}

TEST_F(UpdateCheck, OpensNothingWhenTheUserDeclines) {
    check("2", "2");
    EXPECT_THAT(openedPages(), testing::IsEmpty());
}

TEST_F(UpdateCheck, OpensNothingAfterTheOtherAlerts) {
    it.host.acceptsAlerts = true;
    check("1.1.2", "1.1.2");
    check(std::nullopt, std::nullopt);
    EXPECT_THAT(openedPages(), testing::IsEmpty());
}

TEST_F(UpdateCheck, LooksUpTitleAndMessageButNoButton) {
    it.host.strings = {{"Update available", "Neu"},
                       {"Do you want to download it now?", "Laden? 100 %"},
                       {"Download", "never shown"},
                       {"Cancel", "never shown"}};
    check("2", "2");
    EXPECT_EQ(onlyAlert().title, "Neu");
    EXPECT_EQ(onlyAlert().message, "Laden? 100 %");
    EXPECT_EQ(onlyAlert().defaultButton, "Download");
    EXPECT_EQ(onlyAlert().alternateButton, "Cancel");
}

TEST_F(UpdateCheck, RemembersNothing) {
    check("1.1.2", "1.1.2");
    check("2", "2");
    check("1.1.2", "1.1.2");
    EXPECT_EQ(it.host.alerts.size(), 3);
    EXPECT_EQ(it.host.alerts[0].title, it.host.alerts[2].title);
    EXPECT_EQ(std::ranges::count(it.host.calls.lines, "removeAllCachedResponses"), 3);
}

TEST_F(UpdateCheck, WithoutAServerCannotBeDone) {
    it.host.resources().info.clear();
    check(std::nullopt, std::nullopt);
    EXPECT_EQ(onlyAlert().title, "Error!");
}

} // namespace
} // namespace vistrel
