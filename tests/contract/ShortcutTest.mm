#import "platform/cocoa/DelayedCall.h"
#import "platform/cocoa/Native.h"

#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

/// Has been sent the action of an item, and knows whether the run loop had turned by then.
@interface VTRShortcutTarget : NSObject {
  @public
    int actions;
    bool hasTurned;
    bool hadTurned;
    bool isRefusing;
}

@end

@implementation VTRShortcutTarget

- (void)act:(id)sender {
    ++actions;
    hadTurned = hasTurned;
}

- (BOOL)validateMenuItem:(NSMenuItem*)item {
    return isRefusing ? NO : YES;
}

@end

namespace vistrel::cocoa {
namespace {

class Shortcut : public testing::Test {
  protected:
    void SetUp() override {
        [NSApplication sharedApplication];
        menu = [[NSMenu alloc] initWithTitle:@"Window"];
        ours = [[VTRShortcutTarget alloc] init];
        others = [[VTRShortcutTarget alloc] init];
        native::setKeyEquivalent(addItem(ours), "[");
        [addItem(others) setKeyEquivalent:@"]"];
    }

    void TearDown() override {
        letDelayedCallsRun();
        [menu release];
        [ours release];
        [others release];
        [pool drain];
    }

    /// What is still to come must not find the test gone.
    static void letDelayedCallsRun() {
        bool isLast = false;
        performLater(0, [&isLast] { isLast = true; });
        while (!isLast)
            [[NSRunLoop currentRunLoop] runMode:NSDefaultRunLoopMode
                                     beforeDate:[NSDate distantFuture]];
    }

    NSMenuItem* addItem(VTRShortcutTarget* target) {
        NSMenuItem* item = [[[NSMenuItem alloc] initWithTitle:@"Act"
                                                       action:@selector(act:)
                                                keyEquivalent:@""] autorelease];
        [item setTarget:target];
        [item setKeyEquivalentModifierMask:NSControlKeyMask];
        [menu addItem:item];
        return item;
    }

    void press(NSString* key, VTRShortcutTarget* target) {
        performLater(0, [target] { target->hasTurned = true; });
        NSEvent* event = [NSEvent keyEventWithType:NSKeyDown
                                          location:NSZeroPoint
                                     modifierFlags:NSControlKeyMask
                                         timestamp:0
                                      windowNumber:0
                                           context:nil
                                        characters:key
                       charactersIgnoringModifiers:key
                                         isARepeat:NO
                                           keyCode:0];
        EXPECT_TRUE([menu performKeyEquivalent:event]);
    }

    [[nodiscard]] NSInteger highlighted() const {
        return [[menu menuRepresentation] highlightedItemIndex];
    }

    NSAutoreleasePool* pool = [[NSAutoreleasePool alloc] init];
    NSMenu* menu = nil;
    VTRShortcutTarget* ours = nil;
    VTRShortcutTarget* others = nil;
};

TEST_F(Shortcut, OfOursActsBeforeAnythingElseHappens) {
    press(@"[", ours);
    EXPECT_EQ(ours->actions, 1);
    EXPECT_FALSE(ours->hadTurned);
}

TEST_F(Shortcut, OfOursIsShownInTheMenuAfterwardsUntilItIsDone) {
    NSInteger shown = -1;
    performLater(0, [&] { shown = highlighted(); });
    press(@"[", ours);
    EXPECT_EQ(shown, 0);
    EXPECT_EQ(highlighted(), -1);
}

TEST_F(Shortcut, OfOursInAShutMenuIsShownWhereThatMenuOpens) {
    NSMenu* main = [[[NSMenu alloc] initWithTitle:@"Main"] autorelease];
    [main addItemWithTitle:@"File" action:NULL keyEquivalent:@""];
    id entry = [main addItemWithTitle:@"Window" action:NULL keyEquivalent:@""];
    [main setSubmenu:menu forItem:entry];
    NSInteger shown = -1;
    performLater(0, [&] { shown = [[main menuRepresentation] highlightedItemIndex]; });
    press(@"[", ours);
    EXPECT_EQ(shown, 1);
    EXPECT_EQ([[main menuRepresentation] highlightedItemIndex], -1);
}

TEST_F(Shortcut, OfTheHostActsAsThePlatformHasIt) {
    press(@"]", others);
    EXPECT_EQ(others->actions, 1);
    EXPECT_TRUE(others->hadTurned);
    EXPECT_EQ(highlighted(), -1);
}

TEST_F(Shortcut, OfAnItemThatIsNotValidDoesNothing) {
    ours->isRefusing = true;
    press(@"[", ours);
    EXPECT_EQ(ours->actions, 0);
    EXPECT_EQ(highlighted(), -1);
}

} // namespace
} // namespace vistrel::cocoa
