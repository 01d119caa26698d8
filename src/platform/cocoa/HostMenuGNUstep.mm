#import "platform/cocoa/HostMenuGNUstep.h"

#import "platform/cocoa/HostWindowsGNUstep.h"
#import "platform/cocoa/InWindowMenusGNUstep.h"
#import "platform/cocoa/StackingGNUstep.h"
#import "platform/cocoa/X11GNUstep.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSInterfaceStyle.h>
#import <AppKit/NSMenu.h>
#import <AppKit/NSScreen.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSRunLoop.h>
#import <Foundation/NSString.h>

#include <algorithm>

namespace vistrel::cocoa::gnustep {

namespace {

bool isInWindows() {
    return NSInterfaceStyleForKey(@"NSMenuInterfaceStyle", nil) == NSWindows95InterfaceStyle;
}

NSWindow* menuWindow() {
    return [[NSApp mainMenu] window];
}

/// The frame of the menu, also while it is hidden.
NSRect menuFrame() {
    return isInWindows() ? inWindowMenuFrame([NSApp keyWindow]) : [menuWindow() frame];
}

NSRect menuScreen() {
    NSScreen* const screen = isInWindows() ? nil : [menuWindow() screen];
    return [(screen != nil ? screen : [NSScreen mainScreen]) frame];
}

/// Attached submenus go with their menu; without this, the platform would show them with it again.
void closePanel() {
    NSMenu* const menu = [NSApp mainMenu];
    if ([menu isTransient] || ![[menu window] isVisible])
        return;
    [[menu menuRepresentation] detachSubmenu];
    [menu close];
}

/// A window of this kind has no other way to answer whether it can take the keyboard than to ask
/// its menu, which may have gone before it.
bool isOfMenu(NSWindow* window) {
    return [window isKindOfClass:NSClassFromString(@"NSMenuPanel")] != NO;
}

bool canTakeKeyboard(NSWindow* window) {
    return [window isVisible] && ![window isMiniaturized] && !isOfMenu(window) &&
           [window canBecomeKeyWindow] &&
           ([window styleMask] & (NSIconWindowMask | NSMiniWindowMask)) == 0;
}

/// Of the sides of `screen`, the one nearest to `menu`, and the top of several.
NSRectEdge nearestEdge(NSRect menu, NSRect screen) {
    const CGFloat top = NSMaxY(screen) - NSMaxY(menu);
    const CGFloat left = NSMinX(menu) - NSMinX(screen);
    const CGFloat right = NSMaxX(screen) - NSMaxX(menu);
    const CGFloat bottom = NSMinY(menu) - NSMinY(screen);
    const CGFloat nearest = std::min({top, left, right, bottom});
    if (nearest == top)
        return NSMaxYEdge;
    if (nearest == left)
        return NSMinXEdge;
    return nearest == right ? NSMaxXEdge : NSMinYEdge;
}

/// All that the pointer may cross between the edge of the screen and the bar of a window.
NSRect wayToBar(NSRect bar, NSRect screen) {
    return NSMakeRect(NSMinX(screen), NSMinY(bar), NSWidth(screen), NSMaxY(screen) - NSMinY(bar));
}

} // namespace

void hideHostMenu() {
    if (isInWindows())
        setInWindowMenusHidden(true);
    else
        closePanel();
}

void showHostMenu() {
    NSMenu* const menu = [NSApp mainMenu];
    if (isInWindows())
        setInWindowMenusHidden(false);
    else if ([NSApp isActive] && ![menu isTransient] && ![[menu window] isVisible])
        [menu display];
}

bool mayHideHostMenu() {
    if (isInWindows())
        return true;
    bool mayHide = false;
    visitHostWindows([&](NSWindow* window) { mayHide |= canTakeKeyboard(window); });
    return mayHide;
}

void showHostMenuForKeyboard() {
    showHostMenu();
    waitUntilShown(xWindow(menuWindow()));
}

bool isHostMenuInUse() {
    NSString* const mode = [[NSRunLoop currentRunLoop] currentMode];
    return [mode isEqualToString:NSEventTrackingRunLoopMode] ||
           [[[[NSApp mainMenu] attachedMenu] window] isVisible];
}

NSRect hostMenuEdge() {
    const NSRect screen = menuScreen();
    NSRect edge{};
    NSRect rest{};
    const auto side = isInWindows() ? NSMaxYEdge : nearestEdge(menuFrame(), screen);
    NSDivideRect(screen, &edge, &rest, 1, side);
    return edge;
}

bool isNearHostMenu(NSPoint point) {
    constexpr CGFloat slack = 20;
    // The platform counts the rows of the pointer from 1, so the topmost is at the very end.
    if (NSMouseInRect(point, NSInsetRect(hostMenuEdge(), -1, -1), NO))
        return true;
    NSRect area = menuFrame();
    if (NSIsEmptyRect(area))
        return false;
    if (isInWindows())
        area = wayToBar(area, menuScreen());
    return NSMouseInRect(point, NSInsetRect(area, -slack, -slack), NO);
}

} // namespace vistrel::cocoa::gnustep
