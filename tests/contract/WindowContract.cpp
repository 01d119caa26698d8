#include "ContractTest.h"

#include "core/WindowLevel.h"

namespace vistrel {
namespace {

class WindowContract : public ContractTest {
  protected:
    void SetUp() override { host->openWindow(initial); }

    void TearDown() override { host->closeWindow(); }

    Window& window() { return application().keyWindow(); }

    const Rect initial{100, 120, 300, 200};
};

TEST_F(WindowContract, IsOnTheScreenThatHoldsIt) {
    EXPECT_EQ(window().screen().frame(), (Rect{0, 0, 1440, 900}));
}

TEST_F(WindowContract, IsOnNoScreenWhenThereIsNoWindow) {
    host->closeWindow();
    EXPECT_EQ(window().screen().frame(), Rect{});
    EXPECT_EQ(window().frameRectForContentRect({0, 0, 10, 10}), Rect{});
    window().center();
    window().setLevel(application().windowLevelForKey(floatingWindowLevelKey));
    EXPECT_EQ(window().frame(), Rect{});
}

TEST_F(WindowContract, StandsExactlyAtWholeFramesAlsoAtTheScreensEdges) {
    for (const Rect& frame : {Rect{0, 0, 718, 900}, Rect{721, 0, 718, 900}, Rect{0, 0, 1440, 900},
                              Rect{1040, 600, 400, 300}, initial}) {
        window().setFrameAnimated(frame);
        EXPECT_EQ(window().frame(), frame);
    }
}

TEST_F(WindowContract, StandsAlsoWhereNoWindowIsUsuallyPut) {
    const auto filled = window().frameRectForContentRect({0, 0, 1440, 900});
    window().setFrameAnimated(filled);
    EXPECT_EQ(window().frame(), filled);
}

TEST_F(WindowContract, HasItsDecorationsAroundItsContent) {
    const Rect content{10, 20, 500, 400};
    const auto frame = window().frameRectForContentRect(content);
    EXPECT_LE(frame.x, content.x);
    EXPECT_LE(frame.y, content.y);
    EXPECT_GE(frame.x + frame.width, content.x + content.width);
    EXPECT_GT(frame.y + frame.height, content.y + content.height);
}

TEST_F(WindowContract, KeepsItsSizeWhenCentred) {
    window().center();
    const auto frame = window().frame();
    EXPECT_EQ(frame.width, initial.width);
    EXPECT_EQ(frame.height, initial.height);
    EXPECT_NEAR(frame.x, (1440 - 300) / 2.0, 1);
    EXPECT_GE(frame.y, (900 - 200) / 2.0 - 30);
}

TEST_F(WindowContract, IsCentredOnlyAfterAMoveHasEnded) {
    window().setFrameAnimated({0, 0, 600, 400});
    window().center();
    EXPECT_NEAR(window().frame().x, (1440 - 600) / 2.0, 1);
    EXPECT_EQ(window().frame().width, 600);
}

TEST_F(WindowContract, HasTwoLevelsThatDiffer) {
    const auto normal = application().windowLevelForKey(normalWindowLevelKey);
    const auto floating = application().windowLevelForKey(floatingWindowLevelKey);
    EXPECT_LT(normal, floating);
    window().setLevel(floating);
    window().setLevel(normal);
    EXPECT_EQ(window().frame(), initial);
}

TEST_F(WindowContract, SurvivesEverySystemUIMode) {
    for (const auto mode : {systemUIHidden, systemUIHidden, systemUINormal, systemUINormal})
        application().setSystemUIMode(mode);
    EXPECT_EQ(window().frame(), initial);
}

TEST_F(WindowContract, LosesNothingToTheSearchWindow) {
    // Where the user may choose the tool, one that ends at once.
    host->storeDefault("VTRSearchTool", "/bin/true");
    application().showSearchWindow("", 0);
    application().showSearchWindow("100% %@ 'text' $(text)", 0);
    host->removeDefault("VTRSearchTool");
    EXPECT_EQ(window().frame(), initial);
}

class DelayContract : public ContractTest {};

TEST_F(DelayContract, CallsOnceAndNotAtOnce) {
    int calls = 0;
    application().performAfterDelay(0.05, [&calls] { ++calls; });
    EXPECT_EQ(calls, 0);
    host->letPass(0.05);
    EXPECT_EQ(calls, 1);
    host->letPass(0.2);
    EXPECT_EQ(calls, 1);
}

TEST_F(DelayContract, KeepsTheOrderOfTheTimes) {
    std::string order;
    application().performAfterDelay(0.10, [&order] { order += 'b'; });
    application().performAfterDelay(0.02, [&order] { order += 'a'; });
    host->letPass(0.15);
    EXPECT_EQ(order, "ab");
}

} // namespace
} // namespace vistrel
