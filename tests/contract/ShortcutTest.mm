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
        [menu release];
        [ours release];
        [others release];
        [pool drain];
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

    void turnRunLoopUntilNothingIsHighlighted() const {
        NSDate* const limit = [NSDate dateWithTimeIntervalSinceNow:10];
        while (highlighted() != -1 && [limit timeIntervalSinceNow] > 0)
            [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
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

TEST_F(Shortcut, OfOursIsShownInTheMenuForAMoment) {
    press(@"[", ours);
    EXPECT_EQ(highlighted(), 0);
    turnRunLoopUntilNothingIsHighlighted();
    EXPECT_EQ(highlighted(), -1);
    EXPECT_EQ(ours->actions, 1);
}

TEST_F(Shortcut, OfOursLeavesTheMenuAloneThatTheUserIsInByThen) {
    press(@"[", ours);
    [[menu menuRepresentation] setHighlightedItemIndex:1];
    bool isOver = false;
    performLater(0.2, [&isOver] { isOver = true; });
    NSDate* const limit = [NSDate dateWithTimeIntervalSinceNow:10];
    while (!isOver && [limit timeIntervalSinceNow] > 0)
        [[NSRunLoop currentRunLoop] runUntilDate:[NSDate dateWithTimeIntervalSinceNow:0.01]];
    EXPECT_EQ(highlighted(), 1);
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
