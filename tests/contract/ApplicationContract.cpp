#include "ContractTest.h"

namespace vistrel {
namespace {

class ApplicationContract : public ContractTest {
  protected:
    void TearDown() override { host->closeWindow(); }
};

TEST_F(ApplicationContract, WithoutAWindowHasNeitherFrameNorTrouble) {
    host->closeWindow();
    for (auto* window : {&application().keyWindow(), &application().mainWindow()}) {
        EXPECT_EQ(window->frame(), Rect{});
        window->setFrameAnimated({1, 2, 3, 4});
        window->setCollectionBehavior(128);
        EXPECT_EQ(window->frame(), Rect{});
    }
}

TEST_F(ApplicationContract, AnswersTheFrameOfKeyAndMainWindow) {
    host->openWindow({100, 120, 300, 200});
    EXPECT_EQ(application().keyWindow().frame(), (Rect{100, 120, 300, 200}));
    EXPECT_EQ(application().mainWindow().frame(), (Rect{100, 120, 300, 200}));
}

TEST_F(ApplicationContract, StandsAtTheAskedFrameWhenTheMoveReturns) {
    host->openWindow({100, 120, 300, 200});
    application().keyWindow().setFrameAnimated({50, 60, 400, 350});
    EXPECT_EQ(application().keyWindow().frame(), (Rect{50, 60, 400, 350}));
}

TEST_F(ApplicationContract, TakesACollectionBehaviour) {
    host->openWindow({100, 120, 300, 200});
    application().mainWindow().setCollectionBehavior(128);
    EXPECT_EQ(application().mainWindow().frame(), (Rect{100, 120, 300, 200}));
}

TEST_F(ApplicationContract, HasAScreen) {
    EXPECT_EQ(application().screenCount(), 1);
}

TEST_F(ApplicationContract, HasAnAbsoluteBundlePath) {
    EXPECT_THAT(application().bundlePath(), testing::StartsWith("/"));
}

TEST_F(ApplicationContract, ShowsTheKeyWhereItsStringTableHasNothing) {
    for (const std::string key :
         {"Success!", "You've yet not saved a window frame for this application.",
          "RestartIndex == 0 - Should restart", "100 %@ %s %d %n", "½ \"quoted\"\n"})
        EXPECT_EQ(application().localizedString(key), key);
}

TEST_F(ApplicationContract, AsksTheHostToQuitAndTakesNoForAnAnswer) {
    host->refuseToTerminate();
    application().terminate();
    EXPECT_EQ(host->terminationsAsked(), 1);
}

TEST_F(ApplicationContract, LogsATextThatLooksLikeAFormat) {
    application().log("100% %@ %s %n");
}

} // namespace
} // namespace vistrel
