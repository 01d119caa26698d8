#include "TestHost.h"

#include "core/Layouts.h"

namespace vistrel {
namespace {

using Action = void (Corvane::*)();

class HalvesAndThirds : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        window = &it.addFrontWindow(initial);
        it.load();
        it.host.calls.lines.clear();
    }

    void perform(Action action) { (it.corvane.m.get()->*action)(); }

    const Rect initial{100, 200, 300, 250};
    memory::MemoryWindow* window = nullptr;
};

constexpr Rect standardScreen{.x = 0, .y = 0, .width = 1440, .height = 900};

TEST(Layout, TilesAScreen1440PointsWide) {
    EXPECT_EQ(frameOf(leftHalf, standardScreen), (Rect{0, 0, 718, 900}));
    EXPECT_EQ(frameOf(rightHalf, standardScreen), (Rect{721, 0, 718, 900}));
    EXPECT_EQ(frameOf(leftThird, standardScreen), (Rect{0, 0, 479, 900}));
    EXPECT_EQ(frameOf(middleThird, standardScreen), (Rect{481, 0, 477, 900}));
    EXPECT_EQ(frameOf(rightThird, standardScreen), (Rect{961, 0, 479, 900}));
}

TEST(Layout, KeepsTheFractionOfXAndTruncatesTheWidth) {
    const Rect screen{0, 0, 1280, 800};
    EXPECT_EQ(frameOf(middleThird, screen), (Rect{1280.0 / 3 + 1, 0, 423, 800}));
    EXPECT_EQ(frameOf(rightThird, screen), (Rect{1280.0 / 3 * 2 + 1, 0, 425, 800}));
    EXPECT_EQ(frameOf(rightHalf, {0, 0, 1367, 768}), (Rect{684.5, 0, 681, 768}));
}

TEST(Layout, TruncatesTowardsZeroAndPassesNegativeWidthsOn) {
    const Rect screen{0, 0, 1, 10};
    EXPECT_EQ(frameOf(leftHalf, screen).width, -1);
    EXPECT_EQ(frameOf(middleThird, screen).width, -2);
    EXPECT_EQ(frameOf(leftThird, screen).width, 0);
}

TEST(Layout, CountsFromTheOriginOfAllScreens) {
    const Rect second{1440, 100, 1280, 800};
    EXPECT_EQ(frameOf(leftHalf, second), (Rect{0, 0, 638, 800}));
    EXPECT_EQ(frameOf(rightThird, second).x, 1280.0 / 3 * 2 + 1);
}

TEST(Truncation, SaturatesAndReadsNoNumberAsZero) {
    EXPECT_EQ(truncated(1.9), 1);
    EXPECT_EQ(truncated(-1.9), -1);
    EXPECT_EQ(truncated(1e300), 2147483647);
    EXPECT_EQ(truncated(-1e300), -2147483648);
    EXPECT_EQ(truncated(std::numeric_limits<double>::quiet_NaN()), 0);
}

struct Toggle {
    const char* name;
    Action command;
    Flag flag;
    SavedFrame saved;
    Rect frame;
    /// The flags that the command leaves alone, its own not counted.
    std::vector<Flag> untouched;
};

class Toggles : public HalvesAndThirds, public testing::WithParamInterface<Toggle> {};

using F = CorvaneFields;
constexpr std::array allFlags{&F::isLeft, &F::isRight, &F::isThreeL, &F::isThreeM, &F::isThreeR};
constexpr std::array allCommands{&Corvane::left, &Corvane::right, &Corvane::threeL,
                                 &Corvane::threeM, &Corvane::threeR};

TEST_P(Toggles, MoveThereAndBackToTheSameFrame) {
    perform(GetParam().command);
    EXPECT_EQ(window->frame(), GetParam().frame);
    EXPECT_TRUE(it.fields().*GetParam().flag);
    EXPECT_EQ(it.fields().*GetParam().saved, initial);
    perform(GetParam().command);
    EXPECT_EQ(window->frame(), initial);
    EXPECT_FALSE(it.fields().*GetParam().flag);
}

TEST_P(Toggles, TakeTheirStepsInOrder) {
    perform(GetParam().command);
    const auto frame = textFromRect(GetParam().frame);
    EXPECT_THAT(it.host.calls.lines,
                testing::ElementsAre("keyWindow", "window frame", "keyWindow", "window screen",
                                     "keyWindow", "window setFrameAnimated " + frame, "mainMenu"));
    it.host.calls.lines.clear();
    perform(GetParam().command);
    EXPECT_THAT(it.host.calls.lines,
                testing::ElementsAre(
                    "keyWindow", "window setFrameAnimated " + textFromRect(initial), "mainMenu"));
}

TEST_P(Toggles, ClearTheOtherFlagsButTheThirdsLeaveTheLeftHalfs) {
    for (std::size_t other = 0; other < allFlags.size(); ++other) {
        if (allFlags.at(other) == GetParam().flag)
            continue;
        memory::MemoryDesktop anotherDesktop;
        TestHost another(anotherDesktop);
        another.addWindowMenuWithZoom();
        another.addFrontWindow();
        another.load();
        auto& controller = *another.corvane.m;
        (controller.*allCommands.at(other))();
        (controller.*GetParam().command)();
        const bool stays = std::ranges::count(GetParam().untouched, allFlags.at(other)) > 0;
        EXPECT_EQ(controller.fields().*allFlags.at(other), stays) << other;
    }
}

TEST_P(Toggles, EndTheFullScreenAndClearTheMarkSixBelowZoom) {
    perform(&Corvane::doFullscreen);
    desktop.clock.advance(0.3);
    ASSERT_TRUE(it.fields().isFullscreen);
    ASSERT_EQ(markedItems(*windows), std::vector{7});
    perform(GetParam().command);
    EXPECT_FALSE(it.fields().isFullscreen);
    EXPECT_THAT(markedItems(*windows), testing::IsEmpty());
}

TEST_P(Toggles, ChangeTheirFlagsWithoutAWindow) {
    it.host.key = nullptr;
    perform(GetParam().command);
    EXPECT_TRUE(it.fields().*GetParam().flag);
    EXPECT_EQ(it.fields().*GetParam().saved, Rect{});
    perform(GetParam().command);
    EXPECT_FALSE(it.fields().*GetParam().flag);
    EXPECT_EQ(window->frame(), initial);
}

TEST_P(Toggles, TakeAWindowOnNoScreenAsOneOnAScreenWithoutSize) {
    desktop.screens.clear();
    perform(GetParam().command);
    EXPECT_TRUE(it.fields().*GetParam().flag);
    EXPECT_EQ(window->frame().height, 0);
    perform(GetParam().command);
    EXPECT_EQ(window->frame(), initial);
}

TEST_P(Toggles, OverwriteTheSavedFrameAtEachFirstCall) {
    perform(GetParam().command);
    perform(GetParam().command);
    const Rect other{1, 2, 3, 4};
    window->setFrameAnimated(other);
    perform(GetParam().command);
    EXPECT_EQ(it.fields().*GetParam().saved, other);
}

TEST_P(Toggles, RestoreWhicheverWindowIsKeyByThen) {
    perform(GetParam().command);
    auto& second = it.host.addWindow("second", {5, 6, 7, 8});
    it.host.key = &second;
    perform(GetParam().command);
    EXPECT_EQ(second.frame(), initial);
    EXPECT_EQ(window->frame(), GetParam().frame);
}

INSTANTIATE_TEST_SUITE_P(
    AllFive, Toggles,
    testing::Values(
        Toggle{"Left", &Corvane::left, &F::isLeft, &F::rectLeft, {0, 0, 718, 900}, {}},
        Toggle{"Right", &Corvane::right, &F::isRight, &F::rectRight, {721, 0, 718, 900}, {}},
        Toggle{"ThreeL",
               &Corvane::threeL,
               &F::isThreeL,
               &F::rectThreeL,
               {0, 0, 479, 900},
               {&F::isLeft}},
        Toggle{"ThreeM",
               &Corvane::threeM,
               &F::isThreeM,
               &F::rectThreeM,
               {481, 0, 477, 900},
               {&F::isLeft}},
        Toggle{"ThreeR",
               &Corvane::threeR,
               &F::isThreeR,
               &F::rectThreeR,
               {961, 0, 479, 900},
               {&F::isLeft}}),
    [](const auto& instance) { return instance.param.name; });

TEST_F(HalvesAndThirds, RightAfterLeftGivesTheLeftHalfBack) {
    perform(&Corvane::left);
    perform(&Corvane::right);
    EXPECT_FALSE(it.fields().isLeft);
    perform(&Corvane::right);
    EXPECT_EQ(window->frame(), (Rect{0, 0, 718, 900}));
}

TEST_F(HalvesAndThirds, LeftAfterAThirdGivesTheFirstFrameBack) {
    perform(&Corvane::left);
    perform(&Corvane::threeL);
    EXPECT_TRUE(it.fields().isLeft);
    perform(&Corvane::left);
    EXPECT_EQ(window->frame(), initial);
    EXPECT_FALSE(it.fields().isThreeL);
}

TEST_F(HalvesAndThirds, GiveTheFrameBackWhateverHasHappenedToTheWindow) {
    perform(&Corvane::left);
    window->setFrameAnimated({7, 7, 77, 77});
    perform(&Corvane::left);
    EXPECT_EQ(window->frame(), initial);
}

TEST_F(HalvesAndThirds, MoveAWindowOnTheSecondScreenToTheFirst) {
    desktop.screens.push_back({1440, 100, 1280, 800});
    window->setFrameAnimated({1500, 300, 400, 300});
    perform(&Corvane::threeR);
    EXPECT_EQ(window->frame(), (Rect{1280.0 / 3 * 2 + 1, 0, 425, 800}));
}

TEST(HalvesAndThirdsWithoutZoom, ClearTheMarkAtIndexFive) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    it.load();
    windows.itemAtIndex(5).setState(true);
    windows.itemAtIndex(4).setState(true);
    windows.itemAtIndex(6).setState(true);
    it.corvane.m->left();
    EXPECT_EQ(markedItems(windows), (std::vector{4, 6}));
}

} // namespace
} // namespace vistrel
