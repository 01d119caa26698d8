#include "TestHost.h"

#include "core/Layouts.h"
#include "core/WindowLevel.h"

namespace vistrel {
namespace {

class Centering : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        window = &it.addFrontWindow({100, 200, 400, 300});
        it.load();
        it.host.calls.lines.clear();
    }

    Corvane& controller() { return *it.corvane.m; }

    memory::MemoryWindow* window = nullptr;
};

TEST_F(Centering, LeavesTheWindowWhereThePlatformCentresIt) {
    controller().center();
    EXPECT_EQ(window->frame(), (Rect{520, 300, 400, 300}));
    EXPECT_THAT(it.host.calls.lines,
                testing::ElementsAre("keyWindow", "window center", "mainMenu", "window frame"));
}

TEST_F(Centering, DropsTheWindow20PointsWhileMenuBarAndDockAreHidden) {
    controller().setKUIMode();
    it.host.calls.lines.clear();
    controller().center();
    EXPECT_THAT(
        it.host.calls.lines,
        testing::ElementsAre("keyWindow", "window center", "keyWindow", "window frame", "keyWindow",
                             "window setFrameAnimated {{520, 280}, {400, 300}}", "mainMenu"));
}

TEST_F(Centering, TakesTheStandardSizeFirstInAMoveOfItsOwn) {
    controller().centerAverage();
    EXPECT_THAT(
        it.host.calls.lines,
        testing::ElementsAre("keyWindow", "window frame", "keyWindow", "window screen", "keyWindow",
                             "window setFrameAnimated {{100, 200}, {1036.800048828125, 756}}",
                             "keyWindow", "window center", "mainMenu"));
}

TEST_F(Centering, SendsTheStandardSizeAlsoToAWindowThatHasIt) {
    controller().centerAverage();
    const auto frame = window->frame();
    it.host.calls.lines.clear();
    controller().centerAverage();
    EXPECT_THAT(it.host.calls.lines,
                testing::Contains("window setFrameAnimated " + textFromRect(frame)));
}

TEST_F(Centering, DropsTheWindowAtStandardSizeToo) {
    controller().setKUIMode();
    controller().centerAverage();
    EXPECT_EQ(window->frame().y, (900 - 756) / 2.0 - 20);
}

TEST(StandardFrame, IsRoundedToSinglePrecision) {
    EXPECT_EQ(standardFrame({1, 2, 3, 4}, {0, 0, 1440, 900}), (Rect{1, 2, 1036.800048828125, 756}));
    EXPECT_EQ(standardFrame({}, {5, 5, 1366, 768}),
              (Rect{0, 0, 983.52001953125, 645.1199951171875}));
}

TEST_F(Centering, EndsEveryLayout) {
    for (const auto centre : {&Corvane::center, &Corvane::centerAverage}) {
        controller().left();
        controller().threeM();
        ASSERT_TRUE(it.fields().isLeft && it.fields().isThreeM);
        (controller().*centre)();
        EXPECT_FALSE(it.fields().isLeft || it.fields().isThreeM);
        controller().right();
        (controller().*centre)();
        EXPECT_FALSE(it.fields().isRight);
        controller().threeL();
        (controller().*centre)();
        EXPECT_FALSE(it.fields().isThreeL);
        controller().threeR();
        (controller().*centre)();
        EXPECT_FALSE(it.fields().isThreeR);
    }
}

TEST_F(Centering, MakesTheNextHalfAFirstOne) {
    controller().left();
    controller().center();
    const auto centred = window->frame();
    controller().left();
    EXPECT_EQ(it.fields().rectLeft, centred);
    EXPECT_EQ(window->frame(), (Rect{0, 0, 718, 900}));
}

TEST_F(Centering, ClearsTheFullScreenMarkAndLeavesTheFloatingMark) {
    for (const auto centre : {&Corvane::center, &Corvane::centerAverage}) {
        windows->itemAtIndex(7).setState(true);
        windows->itemAtIndex(9).setState(true);
        (controller().*centre)();
        EXPECT_EQ(markedItems(*windows), std::vector{9});
    }
}

TEST_F(Centering, NeedsNoWindow) {
    controller().left();
    it.host.key = nullptr;
    controller().centerAverage();
    EXPECT_FALSE(it.fields().isLeft);
}

class Floating : public Centering {};

TEST_F(Floating, LiftsTheWindowAndBringsItBack) {
    controller().floating();
    EXPECT_TRUE(it.fields().isFloating);
    EXPECT_EQ(window->level, memory::MemoryHost::floatingLevel);
    controller().floating();
    EXPECT_FALSE(it.fields().isFloating);
    EXPECT_EQ(window->level, memory::MemoryHost::normalLevel);
}

TEST_F(Floating, AsksForTheMenuThenForTheLevelOfTheKey) {
    controller().floating();
    controller().floating();
    EXPECT_THAT(it.host.calls.lines,
                testing::ElementsAre("mainMenu", "windowLevelForKey 5", "keyWindow",
                                     "window setLevel 103", "mainMenu", "windowLevelForKey 4",
                                     "keyWindow", "window setLevel 100"));
    EXPECT_EQ(floatingWindowLevelKey, 5);
    EXPECT_EQ(normalWindowLevelKey, 4);
}

TEST_F(Floating, MarksTheItemEightBelowZoom) {
    controller().floating();
    EXPECT_EQ(markedItems(*windows), std::vector{9});
    EXPECT_EQ(windows->items()[9]->title, "Make OS X Lion Fullscreen Window");
    controller().floating();
    EXPECT_THAT(markedItems(*windows), testing::IsEmpty());
}

TEST_F(Floating, MarksTheSpotlightItemWhereThatStandsThere) {
    memory::MemoryDesktop other;
    other.folders.insert("/home/user/Library/Application Support/Vistrel");
    other.files[settingsPath] = PropertyList(Dictionary{{"spotlightBOOL", true}});
    TestHost host(other);
    auto& menu = host.addWindowMenuWithZoom();
    host.load();
    host.corvane.m->floating();
    EXPECT_EQ(markedItems(menu), std::vector{9});
    EXPECT_EQ(menu.items()[9]->title, "Show Spotlight Window");
}

TEST_F(Floating, BelongsToTheControllerNotToTheWindow) {
    auto& second = it.host.addWindow("second", {});
    second.level = 42;
    controller().floating();
    it.host.key = &second;
    controller().floating();
    EXPECT_EQ(second.level, memory::MemoryHost::normalLevel);
    EXPECT_EQ(window->level, memory::MemoryHost::floatingLevel);
    EXPECT_FALSE(it.fields().isFloating);
}

TEST_F(Floating, TouchesNoOtherFlagAndNoFrame) {
    controller().left();
    const auto before = window->frame();
    controller().floating();
    EXPECT_TRUE(it.fields().isLeft);
    EXPECT_EQ(window->frame(), before);
    controller().center();
    EXPECT_TRUE(it.fields().isFloating);
}

TEST_F(Floating, ChangesFlagAndMarkWithoutAWindow) {
    it.host.key = nullptr;
    controller().floating();
    EXPECT_TRUE(it.fields().isFloating);
    EXPECT_EQ(markedItems(*windows), std::vector{9});
}

} // namespace
} // namespace vistrel
