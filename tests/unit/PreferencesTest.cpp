#include "TestHost.h"

namespace vistrel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SettingsWindow : public HostTest {
  protected:
    void SetUp() override {
        HostTest::SetUp();
        it.load();
        it.host.calls.lines.clear();
    }

    Corvane& controller() { return *it.corvane.m; }

    memory::MemoryWindowController<VTRPreferencesController>& opened() {
        controller().preferences();
        return *it.host.resources().preferences;
    }

    [[nodiscard]] std::size_t count(std::string_view line) const {
        return static_cast<std::size_t>(std::ranges::count(it.host.calls.lines, line));
    }

    [[nodiscard]] Dictionary file() const {
        return std::get<Dictionary>(*desktop.files.at(settingsPath));
    }
};

TEST_F(SettingsWindow, IsCentredWhenItsInterfaceIsLoadedAndAgainByTheCommandThenShown) {
    controller().preferences();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("init VTRPreferences", "load VTRPreferences", "VTRPreferences center",
                            "VTRPreferences makeKeyAndOrderFront", "activeApplicationName",
                            "fileExists /home/user/Library/Application Support/Vistrel",
                            "fileExists " + settingsPath, "setInteger 0 globalSettingsIndex",
                            "setInteger 1 spotlightBOOLIndex", "setInteger 0 spotlightBOOL",
                            "setBool false globalSettingsRestartBOOL",
                            "setBool false globalSettingsFakeFSABool",
                            "setBool false vtrDisplaySetupBool",
                            "setBool false vtrRestartFinderBOOL", "VTRPreferences center",
                            "showWindow VTRPreferences", "VTRPreferences makeKeyAndOrderFront"));
}

TEST_F(SettingsWindow, IsMadeOnceAndShownAgainWithoutReadingTheFileOrCentring) {
    controller().preferences();
    it.host.calls.lines.clear();
    controller().preferences();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("showWindow VTRPreferences", "VTRPreferences makeKeyAndOrderFront"));
}

TEST_F(SettingsWindow, HasOneControllerForTheLifeOfTheHost) {
    EXPECT_EQ(it.fields().preferencesController, nullptr);
    controller().preferences();
    const auto* first = it.fields().preferencesController;
    EXPECT_NE(first, nullptr);
    controller().preferences();
    EXPECT_EQ(it.fields().preferencesController, first);
}

TEST_F(SettingsWindow, ShowsTheNameOfTheActiveApplicationOfTheFirstOpening) {
    it.host.workspace().activeApplication = "Editor";
    auto& window = opened();
    EXPECT_EQ(window.outlets.appName, "Editor");
    it.host.workspace().activeApplication = "Another";
    controller().preferences();
    EXPECT_EQ(window.outlets.appName, "Editor");
}

TEST_F(SettingsWindow, OpensOnWhatTheFileHoldsAtThatMoment) {
    writeSettings({{"globalSettingsIndex", 3}, {"spotlightBOOL", true}});
    controller().preferences();
    EXPECT_EQ(it.storedDefault("globalSettingsIndex"), PropertyList(3));
    EXPECT_EQ(it.storedDefault("spotlightBOOL"), PropertyList(1));
    EXPECT_EQ(it.storedDefault("spotlightBOOLIndex"), PropertyList(0));
}

TEST_F(SettingsWindow, KeepsItsOwnCopyOfTheSettings) {
    auto& window = opened();
    EXPECT_NE(window.owner.settings().VTRData(), controller().settings().VTRData());
    EXPECT_EQ(window.owner.settings().dataPath(), settingsPath);
}

TEST_F(SettingsWindow, SavesWhatTheHostDefaultsHold) {
    auto& window = opened();
    it.setDefault("globalSettingsIndex", 2);
    it.setDefault("vtrDisplaySetupBool", true);
    window.owner.savePreferences();
    EXPECT_EQ(file(), (Dictionary{{"globalSettingsIndex", 2},
                                  {"spotlightBOOLIndex", 1},
                                  {"spotlightBOOL", false},
                                  {"globalSettingsRestartBOOL", false},
                                  {"globalSettingsFakeFSABool", false},
                                  {"vtrDisplaySetupBool", true},
                                  {"vtrRestartFinderBOOL", false}}));
}

TEST_F(SettingsWindow, SavesWithoutAWordAndLeavesTheWindowOpen) {
    auto& window = opened();
    it.host.calls.lines.clear();
    window.owner.savePreferences();
    EXPECT_THAT(it.host.alerts, IsEmpty());
    EXPECT_EQ(it.host.calls.lines.back(), "writeDictionary " + settingsPath);
    EXPECT_EQ(count("terminate"), 0);
}

TEST_F(SettingsWindow, SavingTwiceWritesTheSameTwice) {
    auto& window = opened();
    window.owner.savePreferences();
    const auto first = file();
    window.owner.savePreferences();
    EXPECT_EQ(file(), first);
    EXPECT_EQ(count("writeDictionary " + settingsPath), 2);
}

TEST_F(SettingsWindow, LeavesTheControllersOwnCopyAsItWas) {
    auto& window = opened();
    it.setDefault("globalSettingsIndex", 2);
    window.owner.savePreferences();
    EXPECT_EQ(*controller().settings().VTRData()->find("globalSettingsIndex"), PropertyList(0));
}

TEST_F(SettingsWindow, NeverOverwritesADamagedFile) {
    desktop.files[settingsPath] = std::nullopt;
    auto& window = opened();
    EXPECT_EQ(it.storedDefault("spotlightBOOLIndex"), PropertyList(0));
    window.owner.savePreferences();
    EXPECT_EQ(desktop.files.at(settingsPath), std::nullopt);
}

TEST_F(SettingsWindow, PutsOnlyTheGlobalSettingsIntoTheFile) {
    auto& window = opened();
    for (const auto* key : {"kuiMode", "windowMode", "ownShortCuts", "restoreString",
                            "centerString", "fullscreenString", "menuString", "restoreToggleIndex"})
        it.setDefault(key, 1);
    window.owner.savePreferences();
    EXPECT_EQ(file().entries().size(), 7);
}

TEST_F(SettingsWindow, OpensTheMakersHomePageAndTheManual) {
    auto& window = opened();
    it.host.calls.lines.clear();
    window.owner.openQuorvix();
    window.owner.openManual();
    EXPECT_THAT(it.host.calls.lines,
                ElementsAre("openURL http://main.example/",
                            "openURL http://main.example/manuals/Vistrel%20Manual.pdf"));
}

TEST_F(SettingsWindow, WithoutAnInterfaceShowsNothing) {
    it.host.resources().canLoadInterfaces = false;
    controller().preferences();
    controller().preferences();
    EXPECT_THAT(it.host.calls.lines, ElementsAre("init VTRPreferences", "showWindow VTRPreferences",
                                                 "showWindow VTRPreferences"));
}

TEST_F(SettingsWindow, IsTriedAgainWhereNoControllerCouldBeMade) {
    it.host.resources().canMakeControllers = false;
    controller().preferences();
    EXPECT_EQ(it.fields().preferencesController, nullptr);
    EXPECT_THAT(it.host.calls.lines, IsEmpty());
    it.host.resources().canMakeControllers = true;
    controller().preferences();
    EXPECT_NE(it.fields().preferencesController, nullptr);
}

TEST_F(SettingsWindow, OfTwoApplicationsTheLastSaveWinsAndStrangersKeysSurvive) {
    writeSettings({{"stranger", "kept"}});
    TestHost second{desktop};
    second.addWindowMenuWithZoom();
    second.host.workspace().activeApplication = "Second";
    second.load();
    second.corvane.m->preferences();
    auto& other = *second.host.resources().preferences;
    auto& window = opened();
    it.setDefault("globalSettingsIndex", 1);
    it.setDefault("spotlightBOOL", true);
    second.setDefault("globalSettingsIndex", 2);
    window.owner.savePreferences();
    other.owner.savePreferences();
    EXPECT_EQ(*file().find("globalSettingsIndex"), PropertyList(2));
    EXPECT_EQ(*file().find("spotlightBOOL"), PropertyList(false));
    EXPECT_EQ(*file().find("stranger"), PropertyList("kept"));
    EXPECT_EQ(other.outlets.appName, "Second");
}

} // namespace
} // namespace vistrel
