#include "TestHost.h"

namespace vistrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Fullscreen : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        window = &it.addFrontWindow(initial);
        it.load();
        it.host.calls.lines.clear();
    }

    Corvane& controller() { return *it.corvane.m; }

    void enter() {
        controller().doFullscreen();
        desktop.clock.advance(0.3);
    }

    /// The requests since the last time that change something.
    std::vector<std::string> changes() {
        std::vector<std::string> result;
        for (const auto& line : it.host.calls.lines)
            if (line.starts_with("set") || line.starts_with("perform") ||
                line.find(" set") != std::string::npos)
                result.push_back(line);
        it.host.calls.lines.clear();
        return result;
    }

    const Rect initial{100, 200, 300, 250};
    /// The content fills 1440×900; the title bar of 22 points is above the screen's edge.
    const Rect filled{0, 0, 1440, 922};
    memory::MemoryWindow* window = nullptr;
};

TEST_F(Fullscreen, HidesAtOnceAndFillsTheScreenAfter300Milliseconds) {
    controller().doFullscreen();
    EXPECT_EQ(it.host.systemUIMode, systemUIHidden);
    EXPECT_EQ(markedItems(*windows), std::vector{7});
    EXPECT_EQ(it.fields().rect, initial);
    EXPECT_FALSE(it.fields().isFullscreen);
    desktop.clock.advance(0.299);
    EXPECT_FALSE(it.fields().isFullscreen);
    EXPECT_EQ(window->frame(), initial);
    desktop.clock.advance(0.001);
    EXPECT_TRUE(it.fields().isFullscreen);
    EXPECT_EQ(window->frame(), filled);
}

TEST_F(Fullscreen, EntersStepByStep) {
    controller().doFullscreen();
    EXPECT_THAT(it.host.calls.lines, ElementsAre("mainMenu", "setSystemUIMode 4 1", "keyWindow",
                                                 "window frame", "performAfterDelay 0.3"));
    it.host.calls.lines.clear();
    desktop.clock.advance(0.3);
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("keyWindow", "window screen", "keyWindow",
                            "window frameRectForContentRect {{0, 0}, {1440, 900}}", "keyWindow",
                            "window setFrameAnimated {{0, 0}, {1440, 922}}"));
}

TEST_F(Fullscreen, LeavesStepByStep) {
    enter();
    it.host.calls.lines.clear();
    controller().doFullscreen();
    EXPECT_THAT(it.host.calls.lines, ElementsAre("mainMenu", "keyWindow",
                                                 "window setFrameAnimated {{100, 200}, {300, 250}}",
                                                 "setSystemUIMode 0 0"));
    EXPECT_FALSE(it.fields().isFullscreen);
    EXPECT_THAT(markedItems(*windows), IsEmpty());
    EXPECT_EQ(window->frame(), initial);
}

TEST_F(Fullscreen, NeverCallsForAModeWhileTheHidingModeIsOn) {
    controller().setKUIMode();
    changes();
    enter();
    controller().doFullscreen();
    EXPECT_THAT(changes(), ElementsAre("performAfterDelay 0.3",
                                       "window setFrameAnimated {{0, 0}, {1440, 922}}",
                                       "window setFrameAnimated {{100, 200}, {300, 250}}"));
    EXPECT_EQ(it.host.systemUIMode, systemUIHidden);
    EXPECT_TRUE(it.fields().isEnabled);
}

TEST_F(Fullscreen, EntersAgainWhileTheStepIsPending) {
    controller().doFullscreen();
    window->setFrameAnimated({1, 2, 3, 4});
    desktop.clock.advance(0.1);
    changes();
    controller().doFullscreen();
    EXPECT_THAT(changes(), ElementsAre("setSystemUIMode 4 1", "performAfterDelay 0.3"));
    EXPECT_EQ(it.fields().rect, (Rect{1, 2, 3, 4}));
    desktop.clock.advance(0.2);
    EXPECT_TRUE(it.fields().isFullscreen);
    changes();
    desktop.clock.advance(0.1);
    EXPECT_THAT(changes(), ElementsAre("window setFrameAnimated {{0, 0}, {1440, 922}}"));
}

TEST_F(Fullscreen, ClearsTheHalvesAndThirdsBothWays) {
    controller().left();
    controller().threeR();
    controller().doFullscreen();
    EXPECT_FALSE(it.fields().isLeft || it.fields().isThreeR);
    desktop.clock.advance(0.3);
    controller().doFullscreen();
    EXPECT_FALSE(it.fields().isFullscreen);
}

TEST_F(Fullscreen, FillsTheScreenWithTheWindowThatIsKeyByThen) {
    controller().doFullscreen();
    auto& second = it.host.addWindow("second", {5, 6, 7, 8});
    it.host.key = &second;
    desktop.clock.advance(0.3);
    EXPECT_EQ(second.frame(), filled);
    EXPECT_EQ(window->frame(), initial);
    EXPECT_EQ(it.fields().rect, initial);
}

TEST_F(Fullscreen, FillsTheScreenOfTheWindow) {
    desktop.screens.push_back({1440, 100, 1280, 800});
    window->setFrameAnimated({1500, 200, 300, 250});
    enter();
    EXPECT_EQ(window->frame(), (Rect{1440, 100, 1280, 822}));
}

TEST_F(Fullscreen, ChangesItsFlagsWithoutAWindow) {
    it.host.key = nullptr;
    controller().doFullscreen();
    EXPECT_EQ(it.fields().rect, Rect{});
    desktop.clock.advance(0.3);
    EXPECT_TRUE(it.fields().isFullscreen);
    controller().doFullscreen();
    EXPECT_FALSE(it.fields().isFullscreen);
    EXPECT_EQ(it.host.systemUIMode, systemUINormal);
}

TEST_F(Fullscreen, IsReachedAlsoWhenAHalfComesBetween) {
    controller().doFullscreen();
    controller().left();
    EXPECT_EQ(window->frame(), (Rect{0, 0, 718, 900}));
    EXPECT_EQ(it.fields().rectLeft, initial);
    EXPECT_THAT(markedItems(*windows), IsEmpty());
    desktop.clock.advance(0.3);
    EXPECT_TRUE(it.fields().isFullscreen && it.fields().isLeft);
    EXPECT_THAT(markedItems(*windows), IsEmpty());
    EXPECT_EQ(window->frame(), filled);
}

TEST_F(Fullscreen, StaysHiddenWhenTheWindowIsCentred) {
    enter();
    controller().center();
    const auto centred = window->frame();
    EXPECT_FALSE(it.fields().isFullscreen);
    EXPECT_FALSE(it.fields().isEnabled);
    EXPECT_THAT(markedItems(*windows), IsEmpty());
    EXPECT_EQ(it.host.systemUIMode, systemUIHidden);
    controller().doFullscreen();
    EXPECT_EQ(it.fields().rect, centred);
}

struct Meeting {
    const char* name;
    void (Corvane::*command)();
    bool clearsTheMark;
};

/// Every other command while the delayed step is pending.
class PendingFullscreen : public Fullscreen, public testing::WithParamInterface<Meeting> {};

TEST_P(PendingFullscreen, IsNeverCancelled) {
    controller().doFullscreen();
    (controller().*GetParam().command)();
    EXPECT_FALSE(it.fields().isFullscreen);
    const bool isMarked = std::ranges::count(markedItems(*windows), 7) > 0;
    EXPECT_EQ(isMarked, !GetParam().clearsTheMark);
    desktop.clock.advance(0.3);
    EXPECT_TRUE(it.fields().isFullscreen);
    EXPECT_EQ(window->frame(), filled);
}

INSTANTIATE_TEST_SUITE_P(
    EveryCommand, PendingFullscreen,
    testing::Values(Meeting{"Left", &Corvane::left, true}, Meeting{"Right", &Corvane::right, true},
                    Meeting{"ThreeL", &Corvane::threeL, true},
                    Meeting{"ThreeM", &Corvane::threeM, true},
                    Meeting{"ThreeR", &Corvane::threeR, true},
                    Meeting{"Center", &Corvane::center, true},
                    Meeting{"CenterAverage", &Corvane::centerAverage, true},
                    Meeting{"Floating", &Corvane::floating, false},
                    Meeting{"SetKUIMode", &Corvane::setKUIMode, false},
                    Meeting{"MakeLionFullscreen", &Corvane::makeLionFullscreen, false},
                    Meeting{"Spotlight", &Corvane::spotlight, false}),
    [](const auto& instance) { return instance.param.name; });

class HidingMode : public Fullscreen {};

TEST_F(HidingMode, GoesOnAndOffWithItsMarkSevenBelowZoom) {
    controller().setKUIMode();
    EXPECT_TRUE(it.fields().isEnabled);
    EXPECT_EQ(markedItems(*windows), std::vector{8});
    controller().setKUIMode();
    EXPECT_FALSE(it.fields().isEnabled);
    EXPECT_THAT(markedItems(*windows), IsEmpty());
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("mainMenu", "setSystemUIMode 4 1", "mainMenu", "setSystemUIMode 0 0"));
}

TEST_F(HidingMode, LeavesTheMarkOfTheStartUpAlone) {
    memory::MemoryDesktop other;
    TestHost host(other);
    auto& menu = host.addWindowMenuWithZoom();
    host.setDefault("kuiMode", 1);
    host.load();
    host.corvane.m->setKUIMode();
    EXPECT_EQ(markedItems(menu), std::vector{7});
    EXPECT_FALSE(host.fields().isEnabled);
    EXPECT_EQ(host.host.systemUIMode, systemUINormal);
}

TEST_F(HidingMode, ChangesNoFlagNoFrameAndNoDefault) {
    controller().left();
    const auto stored = it.host.userDefaults().values;
    controller().setKUIMode();
    EXPECT_TRUE(it.fields().isLeft);
    EXPECT_EQ(window->frame(), (Rect{0, 0, 718, 900}));
    EXPECT_EQ(it.host.userDefaults().values, stored);
}

TEST_F(HidingMode, EndsWhileTheFullScreenLasts) {
    enter();
    controller().setKUIMode();
    controller().setKUIMode();
    EXPECT_EQ(it.host.systemUIMode, systemUINormal);
    EXPECT_TRUE(it.fields().isFullscreen);
}

class SystemFullScreen : public Fullscreen {};

TEST_F(SystemFullScreen, ReplacesTheBehaviourOfTheMainWindowNotOfTheKeyWindow) {
    auto& main = it.host.addWindow("main", {});
    main.collectionBehavior = 1;
    it.host.main = &main;
    controller().makeLionFullscreen();
    EXPECT_EQ(main.collectionBehavior, 128U);
    EXPECT_EQ(window->collectionBehavior, 0U);
    EXPECT_THAT(it.host.calls.lines, ElementsAre("mainWindow", "main setCollectionBehavior 128"));
    EXPECT_THAT(markedItems(*windows), IsEmpty());
}

TEST_F(SystemFullScreen, NeedsNoMainWindow) {
    it.host.main = nullptr;
    controller().makeLionFullscreen();
    EXPECT_EQ(window->collectionBehavior, 0U);
}

TEST_F(Fullscreen, SpotlightOpensTheSearchWindowWithoutATextAndOptions) {
    controller().spotlight();
    EXPECT_THAT(it.host.calls.lines, ElementsAre("showSearchWindow \"\" 0"));
}

} // namespace
} // namespace vistrel
