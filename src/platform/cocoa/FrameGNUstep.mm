#import "platform/cocoa/FrameGNUstep.h"

#import "platform/cocoa/GuardObjC.h"
#import "platform/cocoa/HostAnimationGNUstep.h"
#import "platform/cocoa/MoveGNUstep.h"
#import "platform/cocoa/PlaceGNUstep.h"

#import <AppKit/NSScreen.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSException.h>

#include <cmath>

namespace vistrel::cocoa::gnustep {

namespace {

bool isFinite(NSRect frame) {
    return std::isfinite(NSMinX(frame)) && std::isfinite(NSMinY(frame)) &&
           std::isfinite(NSWidth(frame)) && std::isfinite(NSHeight(frame));
}

/// Frees the window from everything else that moves it.
void prepare(NSWindow* window) {
    // The host may close the window meanwhile; until the command is over, it has to be there.
    [[window retain] autorelease];
    endHostAnimations(window);
    takeEvents();
    leaveManagedSize(window);
    awaitMapping(window);
}

} // namespace

void setFrameAnimated(NSWindow* window, NSRect frame) {
    if (window == nil || !isFinite(frame))
        return;
    @try {
        prepare(window);
        moveAnimated(window, frame);
    } @catch (NSException* exception) {
        logStopped([[exception description] UTF8String]);
    }
}

void center(NSWindow* window) {
    if (window == nil)
        return;
    @try {
        prepare(window);
        [window center];
        moveAnimated(window, [window frame]);
    } @catch (NSException* exception) {
        logStopped([[exception description] UTF8String]);
    }
}

NSRect frameRectForContentRect(NSWindow* window, NSRect content) {
    if (window == nil)
        return NSZeroRect;
    // The platform also counts what is inside the window: a tool bar, a menu.
    NSRect frame = [window frameRectForContentRect:content];
    const Extents supposed = supposedExtents(window);
    const Extents real = frameExtents(window).value_or(supposed);
    frame.origin.x += supposed.left - real.left;
    frame.origin.y += supposed.bottom - real.bottom;
    frame.size.width += real.left + real.right - supposed.left - supposed.right;
    frame.size.height += real.top + real.bottom - supposed.top - supposed.bottom;
    return frame;
}

NSRect screenFrame(NSWindow* window) {
    NSScreen* screen = [window screen];
    return screen != nil ? [screen frame] : NSZeroRect;
}

} // namespace vistrel::cocoa::gnustep
