// The main menu as the process really has it, and where its visible parts are.
#import "Probe.h"

namespace {

// Menus nest two or three deep; the limit is there for a menu inside itself.
constexpr int deepestMenu = 8;

NSDictionary* describe(NSMenu* menu, int depth);

bool isOnScreen(NSMenuView* view) {
    NSWindow* window = [view window];
    return window && [window isVisible] && [window windowNumber] > 0 &&
           ![view isHiddenOrHasHiddenAncestor];
}

NSRect onScreen(NSMenuView* view, NSRect rect) {
    NSRect inWindow = [view convertRect:rect toView:nil];
    inWindow.origin = [[view window] convertBaseToScreen:inWindow.origin];
    return inWindow;
}

NSMenuView* ownView(NSMenu* menu) {
    id view = [menu menuRepresentation];
    return [view isKindOfClass:[NSMenuView class]] ? static_cast<NSMenuView*>(view) : nil;
}

// With menu bars inside windows, each window has one more view of the menu.
NSMenuView* viewInside(NSWindow* window, NSMenu* menu) {
    for (NSView* view in [[[window contentView] superview] subviews])
        if ([view isKindOfClass:[NSMenuView class]] &&
            [static_cast<NSMenuView*>(view) menu] == menu)
            return static_cast<NSMenuView*>(view);
    return nil;
}

/// The view that a user can click: the menu's own, or the front window's.
NSMenuView* visibleView(NSMenu* menu) {
    if (isOnScreen(ownView(menu)))
        return ownView(menu);
    if (menu != [NSApp mainMenu])
        return nil;
    NSMutableArray* windows = [NSMutableArray array];
    if ([NSApp keyWindow])
        [windows addObject:[NSApp keyWindow]];
    if ([NSApp mainWindow])
        [windows addObject:[NSApp mainWindow]];
    [windows addObjectsFromArray:[NSApp windows]];
    for (NSWindow* window in windows) {
        NSMenuView* view = viewInside(window, menu);
        if (isOnScreen(view))
            return view;
    }
    return nil;
}

id itemRect(NSMenuView* view, NSInteger index) {
    return probe::orNull(view ? probe::rowsFromTop(onScreen(view, [view rectOfItemAtIndex:index]))
                              : nil);
}

NSDictionary* describeItem(NSMenu* menu, NSMenuView* view, NSInteger index, int depth) {
    NSMenuItem* item = static_cast<NSMenuItem*>([menu itemAtIndex:index]);
    id target = [item target], represented = [item representedObject];
    return @{
        @"title" : probe::orNull([item title]),
        @"class" : NSStringFromClass([item class]),
        @"action" : probe::orNull([item action] ? NSStringFromSelector([item action]) : nil),
        @"targetIsNil" : @(target == nil),
        @"targetClass" : probe::orNull(target ? NSStringFromClass([target class]) : nil),
        @"representedClass" :
            probe::orNull(represented ? NSStringFromClass([represented class]) : nil),
        @"keyEquivalent" : probe::orNull([item keyEquivalent]),
        @"keyEquivalentModifierMask" : @([item keyEquivalentModifierMask]),
        @"state" : @([item state]),
        @"tag" : @([item tag]),
        @"enabled" : probe::flag([item isEnabled]),
        @"isSeparator" : probe::flag([item isSeparatorItem]),
        @"rect" : itemRect(view, index),
        @"submenu" : probe::orNull([item hasSubmenu] ? describe([item submenu], depth + 1) : nil),
    };
}

NSArray* describeItems(NSMenu* menu, NSMenuView* view, int depth) {
    NSMutableArray* items = [NSMutableArray array];
    if (depth > deepestMenu)
        return items;
    const NSInteger count = [menu numberOfItems];
    for (NSInteger i = 0; i < count; ++i)
        [items addObject:describeItem(menu, view, i, depth)];
    return items;
}

// The window that shows the menu, for whoever compares it with the X server's.
id describeWindow(NSWindow* window) {
    if (!window)
        return [NSNull null];
    return @{
        @"xid" : probe::identifierOfXServer(window),
        @"rect" : probe::rowsFromTop([window frame]),
    };
}

NSDictionary* describe(NSMenu* menu, int depth) {
    NSMenuView* view = visibleView(menu);
    return @{
        @"title" : probe::orNull([menu title]),
        @"class" : NSStringFromClass([menu class]),
        @"isWindowsMenu" : @(menu == [NSApp windowsMenu]),
        @"visible" : @(view != nil),
        @"tornOff" : probe::flag([menu isTornOff]),
        @"horizontal" : probe::flag([view isHorizontal]),
        @"highlighted" : @(view ? [view highlightedItemIndex] : -1),
        @"rect" : probe::orNull(view ? probe::rowsFromTop(onScreen(view, [view bounds])) : nil),
        @"window" : describeWindow([view window]),
        @"items" : describeItems(menu, view, depth),
    };
}

} // namespace

namespace probe {

id openMenu(NSMenu* menu) {
    NSMenuView* view = ownView(menu);
    if (!isOnScreen(view))
        return [NSNull null];
    NSMutableArray* rects = [NSMutableArray array];
    for (NSInteger i = 0; i < [menu numberOfItems]; ++i)
        [rects addObject:itemRect(view, i)];
    return @{@"rects" : rects, @"highlighted" : @([view highlightedItemIndex])};
}

NSDictionary* mainMenu() {
    NSMenu *main = [NSApp mainMenu], *windows = [NSApp windowsMenu];
    return @{
        @"mainMenu" : orNull(main ? describe(main, 0) : nil),
        @"windowsMenuTitle" : orNull(windows ? [windows title] : nil),
        @"hasWindowsMenu" : @(windows != nil),
    };
}

} // namespace probe
