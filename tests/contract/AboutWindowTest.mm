#include "ContractHost.h"

#include "core/Corvane.h"
#import "platform/cocoa/Convert.h"
#import "platform/cocoa/VTRAboutNIBController.h"

#import <AppKit/AppKit.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

/// The About window with its interface file, as the command shows it. Outside our namespace, where
/// the names are those of the Objective-C classes.
namespace {

namespace cocoa = vistrel::cocoa;
using testing::ElementsAre;
using vistrel::ContractHost;

std::vector<NSControl*> controlsIn(NSView* view) {
    std::vector<NSControl*> all;
    for (NSView* subview in [view subviews])
        if ([subview isKindOfClass:[NSControl class]])
            all.push_back(static_cast<NSControl*>(subview));
    return all;
}

std::string actionOf(NSControl* control) {
    return [control action] != NULL ? cocoa::toString(NSStringFromSelector([control action])) : "";
}

class AboutWindow : public testing::Test {
  protected:
    void SetUp() override {
        pool = [[NSAutoreleasePool alloc] init];
        before = [[NSApp windows] copy];
    }

    void TearDown() override {
        for (NSWindow* window in made())
            [window close];
        [before release];
        [pool release];
    }

    /// The windows of this test.
    [[nodiscard]] NSArray* made() const {
        auto* const windows = [NSMutableArray arrayWithArray:[NSApp windows]];
        [windows removeObjectsInArray:before];
        return windows;
    }

    [[nodiscard]] NSWindow* window() const {
        return [made() count] == 1 ? [made() objectAtIndex:0] : nil;
    }

    [[nodiscard]] std::vector<NSControl*> controls() const {
        return controlsIn([window() contentView]);
    }

    std::unique_ptr<ContractHost> host = ContractHost::make();
    vistrel::Corvane corvane{host->platform()};
    NSAutoreleasePool* pool = nil;
    NSArray* before = nil;
};

TEST_F(AboutWindow, IsMadeByTheFirstCommandAndKept) {
    EXPECT_EQ(window(), nil);
    corvane.about();
    const auto* controller = corvane.fields().aboutNIBController;
    NSWindow* first = window();
    ASSERT_NE(first, nil);
    EXPECT_TRUE([first isVisible]);

    corvane.about();
    EXPECT_EQ(corvane.fields().aboutNIBController, controller);
    EXPECT_EQ(window(), first);
}

TEST_F(AboutWindow, ComesBackToTheCentreAtEachCommand) {
    corvane.about();
    const NSRect centred = [window() frame];
    const NSRect screen = [[window() screen] frame];
    EXPECT_NEAR(NSMidX(centred), NSMidX(screen), 1);
    [window() setFrameOrigin:NSMakePoint(17, 29)];

    corvane.about();
    EXPECT_TRUE(NSEqualRects([window() frame], centred));
}

TEST_F(AboutWindow, IsShownAgainAfterItWasClosed) {
    corvane.about();
    NSWindow* first = window();
    [first performClose:nil];
    EXPECT_FALSE([first isVisible]);

    corvane.about();
    EXPECT_EQ(window(), first);
    EXPECT_TRUE([first isVisible]);
}

TEST_F(AboutWindow, IsConnectedToItsController) {
    corvane.about();
    id controller = [window() windowController];
    EXPECT_TRUE([controller isKindOfClass:[VTRAboutNIBController class]]);
    EXPECT_EQ([controller valueForKey:@"window"], window());
}

TEST_F(AboutWindow, CanBeClosedAndNotResized) {
    corvane.about();
    EXPECT_EQ([window() styleMask], NSUInteger { NSTitledWindowMask | NSClosableWindowMask });
    EXPECT_FALSE([window() canBecomeMainWindow]) << "the host's commands stay with its document";
    EXPECT_TRUE([window() canBecomeKeyWindow]);
}

TEST_F(AboutWindow, SendsFourActionsToItsController) {
    corvane.about();
    std::vector<std::string> actions;
    for (NSControl* control : controls()) {
        if ([control action] == NULL)
            continue;
        actions.push_back(actionOf(control));
        EXPECT_EQ([control target], [window() windowController]);
    }
    EXPECT_THAT(actions, ElementsAre("openManuals:", "openQuorvix:", "openSupport:", "openACK:"));
}

TEST_F(AboutWindow, LetsTheKeyboardGoRound) {
    corvane.about();
    std::vector<std::string> order;
    id view = [window() initialFirstResponder];
    for (int count = 0; count < 5 && view != nil; ++count) {
        order.push_back(actionOf(view));
        view = [view nextKeyView];
    }
    EXPECT_THAT(order, ElementsAre("openManuals:", "openQuorvix:", "openSupport:", "openACK:",
                                   "openManuals:"));
}

TEST_F(AboutWindow, ShowsItsVersionInTextThatNobodyEdits) {
    corvane.about();
    std::vector<std::string> labels;
    for (NSControl* control : controls()) {
        if (![control isKindOfClass:[NSTextField class]])
            continue;
        labels.push_back(cocoa::toString([control stringValue]));
        EXPECT_FALSE([static_cast<NSTextField*>(control) isEditable]) << labels.back();
    }
    EXPECT_THAT(labels, ElementsAre("Vistrel", "Version " VISTREL_VERSION,
                                    "Window commands for every application",
                                    testing::HasSubstr("MIT License")));
}

TEST_F(AboutWindow, HasTextOfReadableSize) {
    corvane.about();
    for (NSControl* control : controls()) {
        if ([control isKindOfClass:[NSImageView class]])
            continue;
        EXPECT_GE([[control font] pointSize], 11);
        EXPECT_LE([[control font] pointSize], 28);
    }
}

} // namespace
