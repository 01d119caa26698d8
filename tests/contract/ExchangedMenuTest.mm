#include "ContractTest.h"

#include "core/Corvane.h"

#import <AppKit/AppKit.h>

namespace vistrel {
namespace {

/// A host that exchanges its main menu, on GNUstep, where a menu is on screen for as long as it
/// exists and its window may exist for longer.
class ExchangedMenu : public ContractTest {
  protected:
    void SetUp() override { host->openWindow({150, 170, 400, 300}); }

    void TearDown() override {
        application().setSystemUIMode(systemUINormal);
        host->removeMainMenu();
        host->closeWindow();
    }

    void exchangeMenu() { host->setMainMenu({{.title = "Window", .isWindowMenu = true}}); }

    /// Has the mode and the commands look at all there is.
    void useMenus() {
        application().setSystemUIMode(systemUIHidden);
        windowMenu(host->platform());
        application().setSystemUIMode(systemUINormal);
    }
};

NSInteger numberOfMenuWindow() {
    return [[[NSApp mainMenu] window] windowNumber];
}

TEST_F(ExchangedMenu, LeavesTheScreen) {
    exchangeMenu();
    const auto number = numberOfMenuWindow();
    useMenus();
    exchangeMenu();
    exchangeMenu();
    ASSERT_NE(numberOfMenuWindow(), number);
    EXPECT_EQ([NSApp windowWithWindowNumber:number], nil);
}

TEST_F(ExchangedMenu, IsNotKeptByLookingAtWindows) {
    exchangeMenu();
    NSWindow* window = [[NSApp mainMenu] window];
    const auto before = [window retainCount];
    application().keyWindow().setLevel(NSFloatingWindowLevel);
    application().keyWindow().setLevel(NSNormalWindowLevel);
    EXPECT_EQ([window retainCount], before);
}

TEST_F(ExchangedMenu, IsNotAskedWhenOnlyItsWindowIsLeft) {
    exchangeMenu();
    NSWindow* window = [[[NSApp mainMenu] window] retain];
    exchangeMenu();
    exchangeMenu();
    ASSERT_TRUE([window isVisible]);
    // The host's own window is not on screen, so the mode looks at every other one.
    host->closeWindow();
    application().setSystemUIMode(systemUIHidden);
    application().setSystemUIMode(systemUINormal);
    [window release];
}

} // namespace
} // namespace vistrel
