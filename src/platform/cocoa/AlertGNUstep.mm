#import "platform/cocoa/AlertGNUstep.h"

#import "platform/cocoa/AlertPanelGNUstep.h"

namespace vistrel::cocoa::gnustep {

namespace {

/// The platform gives the keyboard to the main window, which need not be the one that had it.
void giveKeyboardBack(NSWindow* window) {
    if ([NSApp isActive])
        [window makeKeyWindow];
}

} // namespace

bool runAlert(const Alert& alert) {
    // Everything of the alert is gone when this returns. Should the host's event loop raise an
    // exception meanwhile, the pool around this one empties both.
    NSAutoreleasePool* const pool = [[NSAutoreleasePool alloc] init];
    NSWindow* const before = [[[NSApp keyWindow] retain] autorelease];
    VTRAlertPanel* const panel = [[[VTRAlertPanel alloc] initWithAlert:alert] autorelease];
    const bool isAccepted = [NSApp runModalForWindow:panel] == NSAlertDefaultReturn;
    [panel orderOut:nil];
    giveKeyboardBack(before);
    [pool release];
    return isAccepted;
}

bool isRunningAlert() {
    return [[NSApp modalWindow] isKindOfClass:[VTRAlertPanel class]] != NO;
}

} // namespace vistrel::cocoa::gnustep
