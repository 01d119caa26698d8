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
    // The host may close its window meanwhile, and what goes wrong in its event loop comes through
    // here as an exception; the pool outlives both.
    NSWindow* const before = [[[NSApp keyWindow] retain] autorelease];
    VTRAlertPanel* const panel = [[[VTRAlertPanel alloc] initWithAlert:alert] autorelease];
    const bool isAccepted = [NSApp runModalForWindow:panel] == NSAlertDefaultReturn;
    [panel orderOut:nil];
    giveKeyboardBack(before);
    return isAccepted;
}

bool isRunningAlert() {
    return [[NSApp modalWindow] isKindOfClass:[VTRAlertPanel class]] != NO;
}

} // namespace vistrel::cocoa::gnustep
