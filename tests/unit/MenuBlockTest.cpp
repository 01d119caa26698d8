#include "TestHost.h"

#include "core/MenuBlock.h"

namespace vistrel {
namespace {

constexpr ModifierMask none = commandMask; // the mask of a fresh item

struct Row {
    std::string title;
    std::string action;
    std::string key;
    ModifierMask mask;
    std::vector<Row> submenu = {};
};

const Row separator{"-", "", "", none};

void expectRows(const memory::MemoryMenu& menu, std::size_t first, const std::vector<Row>& rows) {
    ASSERT_GE(menu.items().size(), first + rows.size());
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const auto& item = *menu.items()[first + index];
        const auto& row = rows[index];
        SCOPED_TRACE(row.title);
        EXPECT_EQ(item.isSeparator, row.title == "-");
        EXPECT_EQ(item.title, row.title == "-" ? "" : row.title);
        EXPECT_EQ(item.action, row.action);
        EXPECT_EQ(item.targetsController, !row.action.empty());
        EXPECT_EQ(item.keyEquivalent, row.key);
        EXPECT_EQ(item.keyEquivalentModifierMask, row.mask);
        EXPECT_FALSE(item.state);
        ASSERT_EQ(item.memorySubmenu() != nullptr, !row.submenu.empty());
        if (!row.submenu.empty()) {
            EXPECT_EQ(item.memorySubmenu()->items().size(), row.submenu.size());
            expectRows(*item.memorySubmenu(), 0, row.submenu);
        }
    }
}

const std::vector<Row> wholeBlock{
    separator,
    {"Quorvix's Vistrel",
     "",
     "",
     none,
     {{"About", "about:", "", none},
      {"Website", "openWebsite:", "", none},
      {"Check for Updates\u2026", "updates:", "", none},
      {"More Nifty Apps From Quorvix", "quorvix:", "", none}}},
    {"Settings",
     "",
     "",
     none,
     {{"Settings\u2026", "preferences:", ",", 0x180000},
      {"Save Default Window Frame", "saveWind:", "s", 0x1C0000},
      {"Restore Default Window Frame", "restoreWind:", "\n", 0x1C0000}}},
    {"Arrange",
     "",
     "",
     none,
     {{"Center Window", "center:", "\n", 0x80000},
      {"Center Average Window", "centerAverage:", "\n", 0xC0000},
      separator,
      {"Toggle \u00BD Screen Left", "left:", "[", 0x40000},
      {"Toggle \u00BD Screen Right", "right:", "]", 0x40000},
      separator,
      {"Toggle \u2153 Screen Left", "threeL:", "", none},
      {"Toggle \u2153 Screen Middle", "threeM:", "", none},
      {"Toggle \u2153 Screen Right", "threeR:", "", none}}},
    {"Toggle Fullscreen", "doFullscreen:", "\n", 0x100000},
    {"Toggle Menu And Dock", "setKUIMode:", "\n", 0x40000},
    {"Toggle Floating Window", "floating:", "\n", 0x60000},
    {"Make OS X Lion Fullscreen Window", "makeLionFullscreen:", "f", 0x1C0000},
};

class MenuBlock : public HostTest {};

TEST_F(MenuBlock, StandsBelowZoomWithEveryTitleActionKeyAndMask) {
    it.load();
    ASSERT_EQ(windows->items()[1]->title, "Zoom");
    expectRows(*windows, 2, wholeBlock);
}

TEST_F(MenuBlock, NeedsNoClosingSeparatorWhereTheHostGoesOnWithOne) {
    it.load();
    EXPECT_EQ(titles(*windows),
              (std::vector<std::string>{
                  "Minimize", "Zoom", "-", "Quorvix's Vistrel", "Settings", "Arrange",
                  "Toggle Fullscreen", "Toggle Menu And Dock", "Toggle Floating Window",
                  "Make OS X Lion Fullscreen Window", "-", "Bring All to Front"}));
}

TEST(MenuBlockShapes, GetsAClosingSeparatorBeforeAnItem) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    windows.add("Zoom", "performZoom:");
    windows.add("Bring All to Front", "arrangeInFront:");
    it.load();
    const auto all = titles(windows);
    ASSERT_EQ(all.size(), 11U);
    EXPECT_EQ(all[9], "-");
    EXPECT_EQ(all[10], "Bring All to Front");
}

TEST(MenuBlockShapes, GetsAClosingSeparatorAtTheEndOfTheMenu) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    windows.add("Zoom", "performZoom:");
    it.load();
    ASSERT_EQ(windows.items().size(), 10U);
    EXPECT_TRUE(windows.items()[9]->isSeparator);
}

TEST(MenuBlockShapes, GetsNoClosingSeparatorWhereSeparatorsHaveNoClassOfTheirOwn) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop, false);
    auto& windows = it.addEmptyWindowMenu();
    windows.add("Zoom", "performZoom:");
    windows.add("Bring All to Front", "arrangeInFront:");
    it.load();
    const auto all = titles(windows);
    ASSERT_EQ(all.size(), 10U);
    EXPECT_EQ(all[9], "Bring All to Front");
}

TEST(MenuBlockShapes, StartsAtTheTopOfAMenuWithoutZoom) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    windows.add("Arrange in Front", "arrangeInFront:");
    it.load();
    expectRows(windows, 0, wholeBlock);
    EXPECT_EQ(titles(windows)[8], "-");
    EXPECT_EQ(titles(windows)[9], "Arrange in Front");
}

TEST(MenuBlockShapes, FillsAnEmptyWindowMenu) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    it.load();
    expectRows(windows, 0, wholeBlock);
    EXPECT_EQ(windows.items().size(), 9U);
}

TEST(MenuBlockShapes, FollowsTheFirstOfTwoZoomItems) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    windows.add("Something");
    windows.add("Larger", "performZoom:");
    windows.add("Zoom", "performZoom:");
    it.load();
    expectRows(windows, 2, wholeBlock);
}

TEST(MenuBlockShapes, PassesOverAZoomItemThatHasATarget) {
    memory::MemoryDesktop desktop;
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    windows.add("Own Zoom", "performZoom:").targetsController = true;
    windows.add("Zoom", "performZoom:");
    it.load();
    expectRows(windows, 2, wholeBlock);
}

TEST_F(MenuBlock, ShowsTheSpotlightItemAheadOfTheLionItem) {
    writeSettings({{"spotlightBOOL", true}, {"spotlightBOOLIndex", 1}});
    it.load();
    expectRows(*windows, 9,
               {{"Show Spotlight Window", "spotlight:", " ", 0x180000},
                {"Make OS X Lion Fullscreen Window", "makeLionFullscreen:", "f", 0x1C0000}});
    EXPECT_EQ(titles(*windows)[11], "-");
    EXPECT_EQ(titles(*windows)[12], "Bring All to Front");
    EXPECT_EQ(windows->items().size(), 13U);
}

TEST(MenuBlockShapes, GetsTheClosingSeparatorBelowTheSpotlightBlock) {
    memory::MemoryDesktop desktop;
    desktop.folders.insert("/home/user/Library/Application Support/Vistrel");
    desktop.files["/home/user/Library/Application Support/Vistrel/Settings.plist"] =
        PropertyList(Dictionary{{"spotlightBOOL", true}});
    TestHost it(desktop);
    auto& windows = it.addEmptyWindowMenu();
    windows.add("Zoom", "performZoom:");
    windows.add("Bring All to Front", "arrangeInFront:");
    it.load();
    ASSERT_EQ(windows.items().size(), 12U);
    EXPECT_EQ(titles(windows)[10], "-");
}

TEST_F(MenuBlock, GivesTheSpotlightItemCommandForIndexZeroAndOptionTooForAnyOther) {
    const std::vector<std::pair<int, ModifierMask>> table{
        {0, 0x100000}, {1, 0x180000}, {5, 0x180000}, {-1, 0x180000}};
    for (const auto& [index, mask] : table) {
        it.setDefault("spotlightBOOLIndex", index);
        const auto item = describe(spotlightEntry(it.host.userDefaults()), it.host.userDefaults());
        EXPECT_EQ(item.shortcut, (Shortcut{" ", mask})) << index;
    }
}

TEST_F(MenuBlock, TakesTheUsersOwnShortcuts) {
    it.setDefault("ownShortCuts", true);
    it.setDefault("menuString", "m");
    it.setDefault("menuToggleIndex", 2);
    it.setDefault("restoreString", "r");
    it.setDefault("restoreToggleIndex", 1);
    it.setDefault("fullscreenString", "f");
    it.setDefault("centerToggleIndex", 7);
    it.load();
    expectRows(*windows, 6,
               {{"Toggle Fullscreen", "doFullscreen:", "f", 0x100000},
                {"Toggle Menu And Dock", "setKUIMode:", "m", 0x80000}});
    expectRows(*windows->items()[4]->memorySubmenu(), 2,
               {{"Restore Default Window Frame", "restoreWind:", "r", 0x40000}});
    expectRows(*windows->items()[5]->memorySubmenu(), 0,
               {{"Center Window", "center:", "", 0x100000},
                {"Center Average Window", "centerAverage:", "\n", 0xC0000}});
}

} // namespace
} // namespace vistrel
