#import "platform/cocoa/ShortcutGNUstep.h"

#import <AppKit/NSMenu.h>
#import <AppKit/NSMenuItem.h>
#import <AppKit/NSMenuView.h>
#import <Foundation/NSDate.h>
#import <Foundation/NSRunLoop.h>
#import <objc/runtime.h>

namespace vistrel::cocoa::gnustep {

namespace {

// No delegate and no method of an item has a say in when its action is sent, so the method that
// waits is replaced. It sees to the host's own items as before.

// As long as the platform shows it.
constexpr NSTimeInterval flashSeconds = 0.1;

using Perform = void (*)(id, SEL, NSInteger);

constinit Perform platformPerform = nullptr;
constinit id target = nil;

/// An entry of a menu, as its view counts.
struct Entry {
    NSMenuView* view;
    NSInteger index;
};

/// Where the user sees that an item of `menu` has been chosen: there, or above where that is shut.
Entry visibleEntry(NSMenu* menu, NSInteger index) {
    for (NSMenu* above = [menu supermenu]; above != nil && ![menu isAttached] && ![menu isTornOff];
         above = [menu supermenu]) {
        index = [above indexOfItemWithSubmenu:menu];
        menu = above;
    }
    return {[menu menuRepresentation], index};
}

void perform(id view, SEL selector, NSInteger index) {
    NSMenu* menu = [view menu];
    if ([[menu itemAtIndex:index] target] != target)
        return platformPerform(view, selector, index);

    NSDate* const end = [NSDate dateWithTimeIntervalSinceNow:flashSeconds];
    const Entry entry = visibleEntry(menu, index);
    const NSInteger before = [entry.view highlightedItemIndex];
    [[entry.view retain] autorelease];
    [entry.view setHighlightedItemIndex:entry.index];
    [menu performActionForItemAtIndex:index];
    // As the platform does it: meanwhile the menu is drawn, and keys and mouse wait.
    [[NSRunLoop currentRunLoop] runUntilDate:end];
    [entry.view setHighlightedItemIndex:before];
}

} // namespace

void actAtOnce(NSMenuItem* item) {
    target = [item target];
    if (target == nil || platformPerform != nullptr)
        return;
    const Method method = class_getInstanceMethod([NSMenuView class], @selector
                                                  (performActionWithHighlightingForItemAtIndex:));
    platformPerform = reinterpret_cast<Perform>(method_getImplementation(method));
    method_setImplementation(method, reinterpret_cast<IMP>(perform));
}

} // namespace vistrel::cocoa::gnustep
