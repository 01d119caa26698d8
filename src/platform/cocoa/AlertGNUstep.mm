#import "platform/cocoa/AlertGNUstep.h"

#import "platform/cocoa/AlertPanelGNUstep.h"
#import "platform/cocoa/StackingGNUstep.h"
#import "platform/cocoa/X11GNUstep.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSPanel.h>
#import <Foundation/NSAutoreleasePool.h>

namespace vistrel::cocoa::gnustep {

namespace {

/// As the platform does it first of all when it runs a window modally, and so that no key is typed
/// into another window.
void show(NSPanel* panel) {
    [panel setLevel:NSModalPanelWindowLevel];
    [panel center];
    [panel orderFrontRegardless];
    if (![NSApp isActive] || !waitUntilShown(xWindow(panel)))
        return;
    [panel makeKeyWindow];
    takeFocus(panel);
}

/// To be done while the alert is still in place. When it goes with the keyboard, the platform and
/// the window manager each choose a window for it, and neither may choose this one.
void giveKeyboardBack(NSWindow* window) {
    if (![NSApp isActive])
        return;
    [window makeKeyWindow];
    takeFocus(window);
}

} // namespace

bool runAlert(const Alert& alert) {
    // Everything of the alert is gone when this returns. Should the host's event loop raise an
    // exception meanwhile, the pool around this one empties both.
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    NSWindow* const before = [[[NSApp keyWindow] retain] autorelease];
    VTRAlertPanel* const panel = [[[VTRAlertPanel alloc] initWithAlert:alert] autorelease];
    show(panel);
    const bool isAccepted = [NSApp runModalForWindow:panel] == NSAlertDefaultReturn;
    giveKeyboardBack(before);
    [panel orderOut:nil];
    [pool release];
    return isAccepted;
}

bool isRunningAlert() {
    return [[NSApp modalWindow] isKindOfClass:[VTRAlertPanel class]] != NO;
}

} // namespace vistrel::cocoa::gnustep
