#include "TestHost.h"

namespace vistrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Rect initial{212, 140, 960, 720};
const std::string initialText = "{{212, 140}, {960, 720}}";
const Rect other{10, 20, 300, 200};

class SavedFrame : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        window = &it.addFrontWindow(initial);
    }

    Corvane& controller() {
        if (!it.corvane.m)
            load();
        return *it.corvane.m;
    }

    void load() {
        it.load();
        it.host.calls.lines.clear();
    }

    void keepFramesForEachDisplaySetup() { it.setDefault("vtrDisplaySetupBool", true); }

    void attachSecondScreen() { desktop.screens.push_back({1440, 0, 1280, 800}); }

    [[nodiscard]] const Alert& onlyAlert() const {
        EXPECT_EQ(it.host.alerts.size(), 1);
        return it.host.alerts.at(0);
    }

    memory::MemoryWindow* window = nullptr;
};

class SavingTheFrame : public SavedFrame {};

TEST_F(SavingTheFrame, StoresTheKeyWindowsFrameAsText) {
    controller().saveWind();
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect"), PropertyList(initialText));
}

TEST_F(SavingTheFrame, TakesTheKeyWindowAndNotTheMainWindow) {
    it.host.main = &it.host.addWindow("main", other);
    controller().saveWind();
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect"), PropertyList(initialText));
}

TEST_F(SavingTheFrame, SaysSo) {
    controller().saveWind();
    EXPECT_EQ(onlyAlert().title, "Success!");
    EXPECT_EQ(onlyAlert().message, "Current window frame successfully saved.");
    EXPECT_EQ(onlyAlert().defaultButton, "OK");
    EXPECT_EQ(onlyAlert().alternateButton, "");
}

TEST_F(SavingTheFrame, LooksUpTheTitleButNotTheMessage) {
    it.host.strings = {{"Success!", "Gelungen! 100 % %@"},
                       {"Current window frame successfully saved.", "never shown"}};
    controller().saveWind();
    EXPECT_EQ(onlyAlert().title, "Gelungen! 100 % %@");
    EXPECT_EQ(onlyAlert().message, "Current window frame successfully saved.");
}

TEST_F(SavingTheFrame, ForADisplaySetupStoresUnderItsNumberOfScreens) {
    load();
    keepFramesForEachDisplaySetup();
    attachSecondScreen();
    controller().saveWind();
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect2"), PropertyList(initialText));
    EXPECT_EQ(it.host.userDefaults().values.find("vtr_savedWindowRect"), nullptr);
    EXPECT_EQ(onlyAlert().title, "Success!");
    EXPECT_EQ(onlyAlert().message,
              "Current window frame successfully saved for setup with 2 display(s).");
}

TEST_F(SavingTheFrame, CountsTheScreensOfTheMoment) {
    load();
    keepFramesForEachDisplaySetup();
    controller().saveWind();
    attachSecondScreen();
    controller().saveWind();
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect1"), PropertyList(initialText));
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect2"), PropertyList(initialText));
    EXPECT_EQ(it.fields().screens, 2);
    EXPECT_EQ(it.fields().screensString, "2");
}

TEST_F(SavingTheFrame, KeepsTheLastCountWhenSetupsAreNoLongerKeptApart) {
    load();
    keepFramesForEachDisplaySetup();
    attachSecondScreen();
    controller().saveWind();
    it.setDefault("vtrDisplaySetupBool", false);
    controller().saveWind();
    EXPECT_EQ(it.fields().screens, 2);
    EXPECT_EQ(it.fields().screensString, "");
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect"), PropertyList(initialText));
}

TEST_F(SavingTheFrame, ReadsTheFrameFirstAndTellsLast) {
    load();
    controller().saveWind();
    EXPECT_THAT(
        it.host.calls.lines,
        ElementsAre("keyWindow", "window frame", "boolForKey vtrDisplaySetupBool",
                    "setObject vtr_savedWindowRect", "localizedString Success!",
                    "runAlert \"Success!\" \"Current window frame successfully saved.\" [OK] []"));
}

TEST_F(SavingTheFrame, ReplacesWhatWasSavedBefore) {
    it.setDefault("vtr_savedWindowRect", 7);
    controller().saveWind();
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect"), PropertyList(initialText));
}

TEST_F(SavingTheFrame, HasStoredItBeforeTheAlertIsDismissed) {
    it.host.duringAlert = [this] {
        EXPECT_EQ(it.storedDefault("vtr_savedWindowRect"), PropertyList(initialText));
    };
    controller().saveWind();
    EXPECT_EQ(it.host.alerts.size(), 1);
}

TEST_F(SavingTheFrame, WithoutAKeyWindowStoresAnEmptyFrameAndReportsSuccess) {
    it.host.key = nullptr;
    controller().saveWind();
    EXPECT_EQ(it.storedDefault("vtr_savedWindowRect"), PropertyList("{{0, 0}, {0, 0}}"));
    EXPECT_EQ(onlyAlert().title, "Success!");
}

TEST_F(SavingTheFrame, EndsNoMode) {
    controller().left();
    controller().floating();
    controller().saveWind();
    EXPECT_TRUE(it.fields().isLeft);
    EXPECT_TRUE(it.fields().isFloating);
}

class RestoringTheFrame : public SavedFrame {};

TEST_F(RestoringTheFrame, MovesTheKeyWindowThere) {
    it.setDefault("vtr_savedWindowRect", "{{10, 20}, {300, 200}}");
    controller().restoreWind();
    EXPECT_EQ(window->frame(), other);
    EXPECT_THAT(it.host.alerts, IsEmpty());
}

TEST_F(RestoringTheFrame, GivesBackExactlyWhatWasSaved) {
    const Rect odd{-1280.25, 1.0 / 3, 1e6, 0.1};
    window->setFrameAnimated(odd);
    controller().saveWind();
    window->setFrameAnimated(other);
    controller().restoreWind();
    EXPECT_EQ(window->frame(), odd);
}

TEST_F(RestoringTheFrame, ReadsTheTextASecondTimeForTheMove) {
    it.setDefault("vtr_savedWindowRect", "{{10, 20}, {300, 200}}");
    load();
    controller().restoreWind();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("boolForKey vtrDisplaySetupBool", "objectForKey vtr_savedWindowRect",
                            "objectForKey vtr_savedWindowRect", "keyWindow",
                            "window setFrameAnimated {{10, 20}, {300, 200}}", "mainMenu"));
}

TEST_F(RestoringTheFrame, SaysWhenNothingIsSaved) {
    controller().restoreWind();
    EXPECT_EQ(window->frame(), initial);
    EXPECT_EQ(onlyAlert().title, "Error!");
    EXPECT_EQ(onlyAlert().message, "You've yet not saved a window frame for this application.");
    EXPECT_EQ(onlyAlert().defaultButton, "OK");
    EXPECT_EQ(onlyAlert().alternateButton, "");
}

TEST_F(RestoringTheFrame, LooksUpTitleAndMessageOfTheError) {
    it.host.strings = {
        {"Error!", "Fehler!"},
        {"You've yet not saved a window frame for this application.", "Nichts gesichert: %s%n"}};
    controller().restoreWind();
    EXPECT_EQ(onlyAlert().title, "Fehler!");
    EXPECT_EQ(onlyAlert().message, "Nichts gesichert: %s%n");
}

TEST_F(RestoringTheFrame, TakesAValueThatIsNoTextAsNothingSaved) {
    const auto values = {PropertyList(5),
                         PropertyList(true),
                         PropertyList(1.5),
                         PropertyList(Data{}),
                         PropertyList(Array{}),
                         PropertyList(Date{}),
                         PropertyList(Array{"{{1, 2}, {3, 4}}"}),
                         PropertyList(Dictionary{})};
    for (const auto& value : values) {
        it.setDefault("vtr_savedWindowRect", value);
        it.host.alerts.clear();
        controller().restoreWind();
        EXPECT_EQ(window->frame(), initial);
        EXPECT_EQ(onlyAlert().title, "Error!");
    }
}

TEST_F(RestoringTheFrame, AppliesAnEmptyFrameAsItStands) {
    it.setDefault("vtr_savedWindowRect", "{{0, 0}, {0, 0}}");
    controller().restoreWind();
    EXPECT_EQ(window->frame(), Rect{});
    EXPECT_THAT(it.host.alerts, IsEmpty());
}

TEST_F(RestoringTheFrame, TakesMissingNumbersAsZero) {
    it.setDefault("vtr_savedWindowRect", "{{7, 8}, {9");
    controller().restoreWind();
    EXPECT_EQ(window->frame(), (Rect{7, 8, 9, 0}));
    it.setDefault("vtr_savedWindowRect", "");
    controller().restoreWind();
    EXPECT_EQ(window->frame(), Rect{});
    EXPECT_THAT(it.host.alerts, IsEmpty());
}

TEST_F(RestoringTheFrame, FindsNoFrameSavedForAnotherNumberOfScreens) {
    load();
    keepFramesForEachDisplaySetup();
    attachSecondScreen();
    controller().saveWind();
    desktop.screens.pop_back();
    it.host.alerts.clear();
    window->setFrameAnimated(other);
    controller().restoreWind();
    EXPECT_EQ(window->frame(), other);
    EXPECT_EQ(onlyAlert().title, "Error!");
    EXPECT_EQ(it.fields().screensString, "1");
}

TEST_F(RestoringTheFrame, KeepsAFrameForEachNumberOfScreens) {
    load();
    keepFramesForEachDisplaySetup();
    controller().saveWind();
    attachSecondScreen();
    window->setFrameAnimated(other);
    controller().saveWind();
    desktop.screens.pop_back();
    controller().restoreWind();
    EXPECT_EQ(window->frame(), initial);
    attachSecondScreen();
    controller().restoreWind();
    EXPECT_EQ(window->frame(), other);
}

TEST_F(RestoringTheFrame, FindsNoFrameSavedBeforeSetupsWereKeptApart) {
    load();
    controller().saveWind();
    keepFramesForEachDisplaySetup();
    it.host.alerts.clear();
    controller().restoreWind();
    EXPECT_EQ(onlyAlert().title, "Error!");
}

TEST_F(RestoringTheFrame, FindsNoFrameSavedWhileSetupsWereKeptApart) {
    load();
    keepFramesForEachDisplaySetup();
    controller().saveWind();
    it.setDefault("vtrDisplaySetupBool", false);
    it.host.alerts.clear();
    controller().restoreWind();
    EXPECT_EQ(onlyAlert().title, "Error!");
}

TEST_F(RestoringTheFrame, EndsFullScreenButLeavesMenuBarAndDockHidden) {
    it.setDefault("vtr_savedWindowRect", "{{10, 20}, {300, 200}}");
    controller().doFullscreen();
    desktop.clock.advance(0.3);
    ASSERT_EQ(markedItems(*windows), std::vector{7});
    it.host.calls.lines.clear();
    controller().restoreWind();
    EXPECT_FALSE(it.fields().isFullscreen);
    EXPECT_THAT(markedItems(*windows), IsEmpty());
    EXPECT_EQ(it.host.systemUIMode, systemUIHidden);
    EXPECT_EQ(window->frame(), other);
}

TEST_F(RestoringTheFrame, ClearsTheMarkSixBelowTheZoomItemWhateverStandsThere) {
    controller();
    windows->itemAtIndex(1 + 6).setState(true);
    windows->itemAtIndex(1 + 7).setState(true);
    controller().restoreWind();
    EXPECT_EQ(markedItems(*windows), std::vector{1 + 7});
}

using Toggle = void (Corvane::*)();
using Flag = bool CorvaneFields::*;

class RestoringEnds : public SavedFrame,
                      public testing::WithParamInterface<std::pair<Toggle, Flag>> {};

TEST_P(RestoringEnds, TheLayoutAlsoWhenNothingIsSaved) {
    const auto [toggle, flag] = GetParam();
    (controller().*toggle)();
    ASSERT_TRUE(it.fields().*flag);
    controller().restoreWind();
    EXPECT_FALSE(it.fields().*flag);
    EXPECT_EQ(onlyAlert().title, "Error!");
}

TEST_P(RestoringEnds, TheLayoutOnlyAfterTheAlertIsDismissed) {
    const auto flag = GetParam().second;
    (controller().*GetParam().first)();
    bool duringAlert = false;
    it.host.duringAlert = [&, isOn = flag] { duringAlert = it.fields().*isOn; };
    controller().restoreWind();
    EXPECT_TRUE(duringAlert);
}

INSTANTIATE_TEST_SUITE_P(Layouts, RestoringEnds,
                         testing::Values(std::pair(&Corvane::left, &CorvaneFields::isLeft),
                                         std::pair(&Corvane::right, &CorvaneFields::isRight),
                                         std::pair(&Corvane::threeL, &CorvaneFields::isThreeL),
                                         std::pair(&Corvane::threeM, &CorvaneFields::isThreeM),
                                         std::pair(&Corvane::threeR, &CorvaneFields::isThreeR)));

TEST_F(RestoringTheFrame, LeavesHidingFloatingAndTheRememberedFramesAlone) {
    it.setDefault("kuiMode", 1);
    controller().floating();
    controller().left();
    it.host.calls.lines.clear();
    controller().restoreWind();
    EXPECT_TRUE(it.fields().isEnabled);
    EXPECT_TRUE(it.fields().isFloating);
    EXPECT_EQ(it.fields().rectLeft, initial);
    EXPECT_EQ(it.fields().rect, initial);
    EXPECT_EQ(it.storedDefault("kuiMode"), PropertyList(1));
    EXPECT_THAT(it.host.calls.lines, testing::Not(testing::Contains(testing::StartsWith("set"))));
}

TEST_F(RestoringTheFrame, WithoutAKeyWindowMovesNothingAndStillEndsTheLayouts) {
    it.setDefault("vtr_savedWindowRect", "{{10, 20}, {300, 200}}");
    controller().left();
    const auto left = window->frame();
    it.host.key = nullptr;
    controller().restoreWind();
    EXPECT_EQ(window->frame(), left);
    EXPECT_FALSE(it.fields().isLeft);
}

TEST_F(RestoringTheFrame, WithoutAWindowMenuStillMovesTheWindow) {
    it.host.addMainMenu();
    it.setDefault("vtr_savedWindowRect", "{{10, 20}, {300, 200}}");
    controller().restoreWind();
    EXPECT_EQ(window->frame(), other);
}

} // namespace
} // namespace vistrel
