#import "Findings.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSMenu.h>
#import <AppKit/NSMenuItem.h>
#import <AppKit/NSScreen.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSDictionary.h>
#import <Foundation/NSJSONSerialization.h>
#import <Foundation/NSNull.h>
#import <Foundation/NSString.h>
#import <Foundation/NSUserDefaults.h>
#import <Foundation/NSValue.h>

namespace vistrel::doctor {

namespace {

// Menus nest two or three deep; the limit is there for a menu inside itself.
constexpr int deepestMenu = 8;

id orNull(id value) {
    return value != nil ? value : [NSNull null];
}

NSNumber* flag(bool value) {
    return [NSNumber numberWithBool:value ? YES : NO];
}

NSArray* numbers(NSRect rect) {
    return @[ @(NSMinX(rect)), @(NSMinY(rect)), @(NSWidth(rect)), @(NSHeight(rect)) ];
}

/// Nil until Vistrel has been loaded.
Class controllerClass() {
    return NSClassFromString(@"Corvane");
}

/// What Vistrel itself takes for the host's Window menu or Zoom item.
id askController(SEL question) {
    Class controller = controllerClass();
    return [controller respondsToSelector:question] != NO ? [controller performSelector:question]
                                                          : nil;
}

NSArray* itemsOf(NSMenu* menu, int depth);

NSDictionary* describe(NSMenuItem* item, int depth) {
    const bool isSeparator = [item isSeparatorItem] != NO;
    const bool isOurs = [[item target] isKindOfClass:controllerClass()] != NO;
    return @{
        @"title" : isSeparator ? @"" : orNull([item title]),
        @"separator" : flag(isSeparator),
        @"key" : orNull([item keyEquivalent]),
        @"mask" : @([item keyEquivalentModifierMask]),
        @"ours" : flag(isOurs),
        @"items" : [item hasSubmenu] != NO ? itemsOf([item submenu], depth + 1) : @[],
    };
}

NSArray* itemsOf(NSMenu* menu, int depth) {
    NSMutableArray* items = [NSMutableArray array];
    for (NSInteger index = 0; depth < deepestMenu && index < [menu numberOfItems]; ++index)
        [items addObject:describe(static_cast<NSMenuItem*>([menu itemAtIndex:index]), depth)];
    return items;
}

NSArray* screens() {
    NSMutableArray* all = [NSMutableArray array];
    for (NSUInteger index = 0; index < [[NSScreen screens] count]; ++index)
        [all addObject:numbers([[[NSScreen screens] objectAtIndex:index] frame])];
    return all;
}

/// JSON has no data and no dates.
id asJSON(id value) {
    const bool hasForm = [NSJSONSerialization isValidJSONObject:@[ value ]] != NO;
    return hasForm ? value : [value description];
}

NSDictionary* defaults(NSArray* keys) {
    NSMutableDictionary* values = [NSMutableDictionary dictionary];
    for (NSUInteger index = 0; index < [keys count]; ++index) {
        NSString* key = [keys objectAtIndex:index];
        id value = [[NSUserDefaults standardUserDefaults] objectForKey:key];
        if (value != nil)
            [values setObject:asJSON(value) forKey:key];
    }
    return values;
}

} // namespace

NSDictionary* findings(NSArray* keys) {
    NSMenu* windowsMenu = [NSApp windowsMenu];
    NSMenu* foundMenu = askController(@selector(windowMenu));
    NSMenuItem* zoom = askController(@selector(zoomMenuItem));
    NSBundle* vistrel = [NSBundle bundleForClass:controllerClass()];
    return @{
        @"vistrel" : orNull(controllerClass() != Nil ? [vistrel bundlePath] : nil),
        @"windowsMenu" : orNull([windowsMenu title]),
        @"foundMenu" : orNull([foundMenu title]),
        @"zoomItem" : orNull([zoom title]),
        @"windowItems" : itemsOf(foundMenu != nil ? foundMenu : windowsMenu, 0),
        @"mainMenu" : itemsOf([NSApp mainMenu], 0),
        @"screens" : screens(),
        @"backEnd" : orNull([[NSBundle bundleForClass:NSClassFromString(@"GSBackend")] bundlePath]),
        @"defaults" : defaults(keys),
    };
}

} // namespace vistrel::doctor
