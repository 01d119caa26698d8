#include "ContractTest.h"

#include "core/Corvane.h"
#include "core/MenuBlock.h"

namespace vistrel {
namespace {

class MenuContract : public ContractTest {
  protected:
    Menu& windows() { return windowMenu(host->platform()); }

    void giveWindowMenu(std::vector<ContractItem> items) {
        host->setMainMenu(
            {{.title = "File", .submenu = {{.title = "New", .action = "newDocument:"}}},
             {.title = "Window", .submenu = std::move(items), .isWindowMenu = true}});
    }
};

const ContractItem minimize{.title = "Minimize", .action = "performMiniaturize:"};
const ContractItem zoom{.title = "Zoom", .action = "performZoom:"};
const ContractItem separator{.isSeparator = true};

TEST_F(MenuContract, AMissingMainMenuAnswersNothing) {
    host->removeMainMenu();
    auto& menu = application().mainMenu();
    EXPECT_FALSE(menu.exists());
    EXPECT_EQ(menu.menuName(), "");
    EXPECT_EQ(menu.itemCount(), 0);
    EXPECT_EQ(menu.indexOfZoomItem(), 0);
    EXPECT_FALSE(menu.itemAtIndex(0).submenu().exists());
    EXPECT_FALSE(menu.itemAtIndex(0).isOfSeparatorClass());
    EXPECT_FALSE(menu.itemWithTitle("Zoom").submenu().exists());
    menu.itemAtIndex(0).setState(true);
    menu.insertItem({.title = "Item"}, 0);
    EXPECT_FALSE(application().mainMenu().exists());
}

TEST_F(MenuContract, OnlyTheWindowMenuHasItsName) {
    giveWindowMenu({zoom});
    auto& menu = application().mainMenu();
    EXPECT_TRUE(menu.exists());
    EXPECT_EQ(menu.itemCount(), 2);
    EXPECT_NE(menu.menuName(), "NSWindowsMenu");
    EXPECT_NE(menu.itemAtIndex(0).submenu().menuName(), "NSWindowsMenu");
    EXPECT_EQ(menu.itemAtIndex(1).submenu().menuName(), "NSWindowsMenu");
}

TEST_F(MenuContract, ItemsOutsideTheMenuAreNothing) {
    giveWindowMenu({zoom});
    for (const auto index : {-1, 1, 999}) {
        EXPECT_FALSE(windows().itemAtIndex(index).isOfSeparatorClass());
        windows().itemAtIndex(index).setState(true);
    }
    EXPECT_FALSE(host->windowMenuItems()[0].isOn);
}

TEST_F(MenuContract, FindsTheFirstZoomItemWithoutATarget) {
    giveWindowMenu({{.title = "Own", .action = "performZoom:", .hasTarget = true},
                    minimize,
                    {.title = "Larger", .action = "performZoom:"},
                    zoom});
    EXPECT_EQ(windows().indexOfZoomItem(), 2);
}

TEST_F(MenuContract, AnswersMinusOneWithoutAZoomItem) {
    giveWindowMenu({minimize});
    EXPECT_EQ(windows().indexOfZoomItem(), -1);
}

TEST_F(MenuContract, FindsAnItemByItsTitle) {
    giveWindowMenu({minimize, zoom});
    windows().itemWithTitle("Zoom").setState(true);
    EXPECT_TRUE(host->windowMenuItems()[1].isOn);
    EXPECT_FALSE(windows().itemWithTitle("zoom").submenu().exists());
}

TEST_F(MenuContract, TellsSeparatorsByTheirClass) {
    giveWindowMenu({zoom, separator});
    EXPECT_FALSE(windows().itemAtIndex(0).isOfSeparatorClass());
    EXPECT_TRUE(windows().itemAtIndex(1).isOfSeparatorClass());
}

TEST_F(MenuContract, SetsAndClearsCheckMarks) {
    giveWindowMenu({minimize, zoom});
    windows().itemAtIndex(1).setState(true);
    EXPECT_TRUE(host->windowMenuItems()[1].isOn);
    windows().itemAtIndex(1).setState(false);
    EXPECT_FALSE(host->windowMenuItems()[1].isOn);
}

TEST_F(MenuContract, InsertsBetweenItemsAndAtBothEnds) {
    giveWindowMenu({minimize, zoom});
    windows().insertItem({.title = "First"}, 0);
    windows().insertItem({.title = "Middle"}, 2);
    windows().insertItem({.title = "Last"}, 4);
    const auto items = host->windowMenuItems();
    ASSERT_EQ(items.size(), 5U);
    EXPECT_EQ(items[0].title, "First");
    EXPECT_EQ(items[2].title, "Middle");
    EXPECT_EQ(items[4].title, "Last");
}

TEST_F(MenuContract, InsertsNothingOutsideTheMenu) {
    giveWindowMenu({minimize, zoom});
    windows().insertItem({.title = "Below"}, 3);
    windows().insertItem({.title = "Above"}, -1);
    EXPECT_EQ(host->windowMenuItems().size(), 2U);
}

TEST_F(MenuContract, MakesItemsWithEverythingDescribed) {
    giveWindowMenu({zoom});
    windows().insertItem({.title = "½ … ⅓",
                          .command = Command::left,
                          .shortcut = Shortcut{"[", controlMask | shiftMask}},
                         1);
    EXPECT_EQ(host->windowMenuItems()[1], (ContractItem{.title = "½ … ⅓",
                                                        .action = "left:",
                                                        .hasTarget = true,
                                                        .key = "[",
                                                        .mask = controlMask | shiftMask}));
}

TEST_F(MenuContract, GivesTheLineFeedAsAKey) {
    giveWindowMenu({zoom});
    windows().insertItem(
        {.title = "Item", .command = Command::center, .shortcut = Shortcut{"\n", optionMask}}, 1);
    EXPECT_EQ(host->windowMenuItems()[1].key, "\n");
    EXPECT_EQ(host->windowMenuItems()[1].mask, optionMask);
}

TEST_F(MenuContract, LeavesKeyAndMaskOfAFreshItemWithoutAShortcut) {
    giveWindowMenu({zoom});
    windows().insertItem({.title = "Item", .command = Command::threeL}, 1);
    EXPECT_EQ(host->windowMenuItems()[1].key, "");
    EXPECT_EQ(host->windowMenuItems()[1].mask, commandMask);
}

TEST_F(MenuContract, MakesSeparators) {
    giveWindowMenu({zoom});
    windows().insertItem({}, 1);
    EXPECT_TRUE(host->windowMenuItems()[1].isSeparator);
    EXPECT_TRUE(windows().itemAtIndex(1).isOfSeparatorClass());
}

TEST_F(MenuContract, MakesSubmenusUnderItemsWithoutActionAndTarget) {
    giveWindowMenu({zoom});
    windows().insertItem({.title = "Parent",
                          .submenu = {{.title = "Child", .command = Command::about},
                                      {},
                                      {.title = "Other", .command = Command::updates}}},
                         1);
    const auto parent = host->windowMenuItems()[1];
    EXPECT_FALSE(parent.hasTarget);
    ASSERT_EQ(parent.submenu.size(), 3U);
    EXPECT_EQ(parent.submenu[0].title, "Child");
    EXPECT_EQ(parent.submenu[0].action, "about:");
    EXPECT_TRUE(parent.submenu[1].isSeparator);
    EXPECT_EQ(parent.submenu[2].action, "updates:");
    EXPECT_TRUE(windows().itemAtIndex(1).submenu().exists());
}

TEST_F(MenuContract, TakesTheWholeBlock) {
    giveWindowMenu({minimize, zoom, separator});
    Corvane(host->platform()).insertMenu();
    const auto items = host->windowMenuItems();
    ASSERT_EQ(items.size(), 11U);
    EXPECT_TRUE(items[2].isSeparator);
    EXPECT_EQ(items[3].title, "Quorvix's Vistrel");
    EXPECT_EQ(items[5].submenu.size(), 9U);
    EXPECT_EQ(items[9].title, "Make OS X Lion Fullscreen Window");
    EXPECT_TRUE(items[10].isSeparator);
}

} // namespace
} // namespace vistrel
