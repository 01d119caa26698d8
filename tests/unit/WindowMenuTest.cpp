#include "TestHost.h"

namespace vistrel {
namespace {

class WindowMenu : public testing::Test {
  protected:
    memory::MemoryDesktop desktop;
    TestHost it{desktop};
};

TEST_F(WindowMenu, IsTheSubmenuWithThePrivateName) {
    auto& menu = it.addWindowMenuWithZoom();
    EXPECT_EQ(&windowMenu(it.host), &menu);
}

TEST_F(WindowMenu, IsNothingWithoutAMainMenu) {
    EXPECT_FALSE(windowMenu(it.host).exists());
}

TEST_F(WindowMenu, IsNothingInAnEmptyMainMenu) {
    it.host.addMainMenu();
    EXPECT_FALSE(windowMenu(it.host).exists());
}

TEST_F(WindowMenu, IsNothingWhenNoSubmenuHasTheName) {
    it.host.addMainMenu().addSubmenu("Window", "");
    EXPECT_FALSE(windowMenu(it.host).exists());
}

TEST_F(WindowMenu, IsNotSearchedForBeyondAnItemWithoutASubmenu) {
    auto& mainMenu = it.host.addMainMenu();
    mainMenu.addSubmenu("File");
    mainMenu.add("Hide", "hide:");
    mainMenu.addSubmenu("Window", "NSWindowsMenu").add("Zoom", "performZoom:");
    EXPECT_FALSE(windowMenu(it.host).exists());
}

TEST_F(WindowMenu, IsFoundAheadOfAnItemWithoutASubmenu) {
    auto& mainMenu = it.host.addMainMenu();
    auto& menu = mainMenu.addSubmenu("Window", "NSWindowsMenu");
    mainMenu.add("Quit", "terminate:");
    EXPECT_EQ(&windowMenu(it.host), &menu);
}

TEST_F(WindowMenu, AnswersTheZoomItemByItsTitleNotByItsAction) {
    auto& menu = it.addEmptyWindowMenu();
    menu.add("Larger", "performZoom:");
    auto& titled = menu.add("Zoom", "somethingElse:");
    EXPECT_EQ(&zoomMenuItem(it.host), &titled);
}

TEST_F(WindowMenu, AnswersNoZoomItemWithoutThatTitle) {
    auto& menu = it.addEmptyWindowMenu();
    auto& untitled = menu.add("Larger", "performZoom:");
    EXPECT_NE(&zoomMenuItem(it.host), &untitled);
    EXPECT_FALSE(zoomMenuItem(it.host).submenu().exists());
}

} // namespace
} // namespace vistrel
