#include "TestHost.h"

namespace vistrel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Not;
using testing::StartsWith;

class InsertMenu : public HostTest {};

const std::vector<std::string> everyStep{
    "fileExists /home/user/Library/Application Support/Vistrel",
    "fileExists /home/user/Library/Application Support/Vistrel/Settings.plist",
    "readDictionary /home/user/Library/Application Support/Vistrel/Settings.plist",
    "setInteger 2 globalSettingsIndex",
    "setInteger 0 spotlightBOOLIndex",
    "setInteger 1 spotlightBOOL",
    "setBool false globalSettingsRestartBOOL",
    "setBool true globalSettingsFakeFSABool",
    "setBool true vtrDisplaySetupBool",
    "setBool false vtrRestartFinderBOOL",
    "boolForKey globalSettingsFakeFSABool",
    "mainWindow",
    "window setCollectionBehavior 128",
    "boolForKey vtrDisplaySetupBool",
    "log VTRLog - Screens: 1",
    "mainMenu",
    "insertItem \"\" at 2",
    "mainMenu",
    "insertItem \"Quorvix's Vistrel\" at 3",
    "mainMenu",
    "boolForKey ownShortCuts",
    "insertItem \"Settings\" at 4",
    "mainMenu",
    "boolForKey ownShortCuts",
    "insertItem \"Arrange\" at 5",
    "mainMenu",
    "boolForKey ownShortCuts",
    "insertItem \"Toggle Fullscreen\" at 6",
    "mainMenu",
    "boolForKey ownShortCuts",
    "insertItem \"Toggle Menu And Dock\" at 7",
    "mainMenu",
    "insertItem \"Toggle Floating Window\" at 8",
    "mainMenu",
    "insertItem \"Make OS X Lion Fullscreen Window\" at 9",
    "boolForKey spotlightBOOL",
    "integerForKey spotlightBOOLIndex",
    "mainMenu",
    "insertItem \"Show Spotlight Window\" at 9",
    "mainMenu", // for the closing separator, which is there already
    "integerForKey globalSettingsIndex",
    "setSystemUIMode 4 1",
    "mainMenu", // for the mark
    "integerForKey windowMode",
    "boolForKey vtrDisplaySetupBool",
    "objectForKey vtr_savedWindowRect1",
    "objectForKey vtr_savedWindowRect1",
    "keyWindow",
    "window setFrameAnimated {{1, 2}, {3, 4}}",
    "keyWindow",
    "window frame",
    "keyWindow",
    "window frame",
    "keyWindow",
    "window frame",
    "keyWindow",
    "window frame",
    "keyWindow",
    "window frame",
    "keyWindow",
    "window frame",
};

TEST_F(InsertMenu, TakesEveryStepInOrder) {
    writeSettings({{"globalSettingsIndex", 2},
                   {"spotlightBOOL", true},
                   {"globalSettingsFakeFSABool", true},
                   {"vtrDisplaySetupBool", true}});
    it.setDefault("windowMode", 1);
    it.setDefault("vtr_savedWindowRect1", "{{1, 2}, {3, 4}}");
    it.addFrontWindow();
    it.load();
    EXPECT_THAT(it.host.calls.lines, ElementsAreArray(everyStep));
}

TEST_F(InsertMenu, LogsNothingBehindTheBlankWhileScreensAreNotCounted) {
    it.load();
    EXPECT_THAT(it.host.logLines, ElementsAre("VTRLog - Screens: "));
    EXPECT_EQ(it.fields().screens, 0);
    EXPECT_EQ(it.fields().screensString, "");
}

TEST_F(InsertMenu, CountsTwoScreens) {
    writeSettings({{"vtrDisplaySetupBool", true}});
    desktop.screens.push_back({1440, 0, 1280, 800});
    it.load();
    EXPECT_THAT(it.host.logLines, ElementsAre("VTRLog - Screens: 2"));
    EXPECT_EQ(it.fields().screens, 2);
    EXPECT_EQ(it.fields().screensString, "2");
}

TEST_F(InsertMenu, ReplacesTheWholeCollectionBehaviourOfTheMainWindow) {
    writeSettings({{"globalSettingsFakeFSABool", true}});
    auto& key = it.addFrontWindow();
    auto& main = it.host.addWindow("main", {});
    it.host.main = &main;
    main.collectionBehavior = 1;
    it.load();
    EXPECT_EQ(main.collectionBehavior, 128U);
    EXPECT_EQ(key.collectionBehavior, 0U);
}

TEST_F(InsertMenu, LeavesTheCollectionBehaviourWhileTheOptionIsOff) {
    auto& window = it.addFrontWindow();
    window.collectionBehavior = 1;
    it.load();
    EXPECT_EQ(window.collectionBehavior, 1U);
}

TEST_F(InsertMenu, HasNoMainWindowToChange) {
    writeSettings({{"globalSettingsFakeFSABool", true}});
    it.load();
    EXPECT_EQ(windows->items().size(), 12U);
}

TEST_F(InsertMenu, RemembersTheKeyWindowsFrameSixTimes) {
    it.addFrontWindow({1, 2, 3, 4});
    it.load();
    const auto& fields = it.fields();
    for (const auto& frame : {fields.rect, fields.rectLeft, fields.rectRight, fields.rectThreeL,
                              fields.rectThreeM, fields.rectThreeR})
        EXPECT_EQ(frame, (Rect{1, 2, 3, 4}));
}

TEST_F(InsertMenu, RemembersZeroesWithoutAKeyWindow) {
    it.addFrontWindow();
    it.host.key = nullptr;
    it.load();
    EXPECT_EQ(it.fields().rect, Rect{});
    EXPECT_EQ(it.fields().rectThreeR, Rect{});
}

TEST_F(InsertMenu, ClearsTheSevenToggles) {
    it.load();
    const auto& fields = it.fields();
    for (const bool flag : {fields.isFullscreen, fields.isLeft, fields.isRight, fields.isThreeL,
                            fields.isThreeM, fields.isThreeR, fields.isFloating})
        EXPECT_FALSE(flag);
}

class WithoutWindowMenu : public testing::TestWithParam<const char*> {
  protected:
    void SetUp() override {
        if (std::string(GetParam()) == "NoMainMenu")
            return;
        mainMenu = &it.host.addMainMenu();
        if (std::string(GetParam()) == "ItemWithoutSubmenuAhead") {
            mainMenu->add("Hide", "hide:");
            mainMenu->addSubmenu("Window", "NSWindowsMenu").add("Zoom", "performZoom:");
        }
    }

    memory::MemoryDesktop desktop;
    TestHost it{desktop};
    memory::MemoryMenu* mainMenu = nullptr;
};

TEST_P(WithoutWindowMenu, NothingIsInsertedAndEveryOtherStepRuns) {
    desktop.folders.insert("/home/user/Library/Application Support/Vistrel");
    desktop.files["/home/user/Library/Application Support/Vistrel/Settings.plist"] =
        PropertyList(Dictionary{{"globalSettingsIndex", 2}, {"spotlightBOOL", true}});
    it.addFrontWindow();
    it.load();

    if (mainMenu != nullptr) {
        EXPECT_THAT(markedItems(*mainMenu), testing::IsEmpty());
        for (const auto& item : mainMenu->items()) {
            if (item->memorySubmenu() != nullptr) {
                EXPECT_THAT(titles(*item->memorySubmenu()), ElementsAre("Zoom"));
            }
        }
    }
    EXPECT_THAT(it.host.calls.lines, Not(Contains(StartsWith("insertItem"))));
    EXPECT_EQ(it.storedDefault("globalSettingsIndex"), PropertyList(2));
    EXPECT_THAT(it.host.logLines, ElementsAre("VTRLog - Screens: "));
    EXPECT_EQ(it.host.systemUIMode, systemUIHidden);
    EXPECT_TRUE(it.fields().isEnabled);
    EXPECT_EQ(it.fields().rect, (Rect{10, 20, 300, 200}));
}

INSTANTIATE_TEST_SUITE_P(Hosts, WithoutWindowMenu,
                         testing::Values("NoMainMenu", "EmptyMainMenu", "ItemWithoutSubmenuAhead"),
                         [](const auto& instance) { return instance.param; });

} // namespace
} // namespace vistrel
