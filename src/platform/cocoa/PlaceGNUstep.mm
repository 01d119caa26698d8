#import "platform/cocoa/PlaceGNUstep.h"

#import "platform/cocoa/ConstrainGNUstep.h"
#import "platform/cocoa/FrameGNUstep.h"
#import "platform/cocoa/GuardObjC.h"

#import <AppKit/NSEvent.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSException.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace vistrel::cocoa::gnustep {

namespace {

using namespace std::chrono_literals;

// X counts positions with 16 bits and a sign. Half of that leaves room for decorations.
constexpr CGFloat farthest = 16383;

// No window of an application is smaller, and a client narrower than nothing would become one as
// wide as X has numbers.
constexpr CGFloat leastContent = 16;

CGFloat wholePixel(CGFloat edge) {
    return std::clamp(std::rint(edge), -farthest, farthest);
}

/// As the platform does it: the smaller limit wins where the two contradict each other.
CGFloat limited(CGFloat size, CGFloat least, CGFloat most) {
    return std::max(std::min(size, std::floor(most)), std::ceil(least));
}

NSSize leastSize(NSWindow* window) {
    const NSRect content = NSMakeRect(0, 0, leastContent, leastContent);
    const NSSize least = frameRectForContentRect(window, content).size;
    const NSSize own = [window minSize];
    return NSMakeSize(std::max(least.width, own.width), std::max(least.height, own.height));
}

// With these the window manager has a size of its own for the window, and keeps to it.
constexpr std::array managedSizes = {"_NET_WM_STATE_MAXIMIZED_VERT", "_NET_WM_STATE_MAXIMIZED_HORZ",
                                     "_NET_WM_STATE_FULLSCREEN", "_NET_WM_STATE_SHADED"};

/// A window twice the size of everything there is to see would only cost memory.
NSSize greatestSize(NSWindow* window) {
    const NSSize all = serverSize();
    const NSSize own = [window maxSize];
    const auto least = [](CGFloat a, CGFloat b) { return a > 0 ? std::min(a, b) : b; };
    return NSMakeSize(least(own.width, 2 * all.width), least(own.height, 2 * all.height));
}

/// A delegate that throws when its window moves has been told of it by then: the move is done.
template <typename Action> void guarded(Action action) {
    @try {
        action();
    } @catch (NSException* exception) {
        logStopped([[exception description] UTF8String]);
    }
}

} // namespace

bool isOnScreen(NSWindow* window) {
    return [window isVisible] != NO && isMapped(window);
}

NSRect attainableFrame(NSWindow* window, NSRect frame) {
    const CGFloat x = wholePixel(NSMinX(frame));
    const CGFloat y = wholePixel(NSMinY(frame));
    const NSSize least = leastSize(window);
    const NSSize most = greatestSize(window);
    return NSMakeRect(x, y, limited(wholePixel(NSMaxX(frame)) - x, least.width, most.width),
                      limited(wholePixel(NSMaxY(frame)) - y, least.height, most.height));
}

void moveTo(NSWindow* window, NSRect frame) {
    guarded([&] {
        letStand(window, frame);
        // A window that believes to be there does not ask the back end, which may know better.
        if (NSEqualRects([window frame], frame) && [window windowNumber] > 0) {
            [GSServerForWindow(window) placewindow:frame:static_cast<int>([window windowNumber])];
            return;
        }
        {
            // The window manager gets to work while the host lays out its window and draws it.
            const PromptRequests prompt;
            [window setFrame:frame display:NO];
        }
        [window display];
    });
}

bool isPlacedAt(NSWindow* window, NSRect frame) {
    return !isOnScreen(window) || NSEqualRects(serverFrame(window), frame);
}

bool standsAt(NSWindow* window, NSRect frame) {
    return NSEqualRects([window frame], frame) && isPlacedAt(window, frame);
}

bool hasSettled(NSWindow* window, NSRect frame) {
    return isPlacedAt(window, frame) || standsAt(window, [window frame]);
}

void tell(NSWindow* window, NSRect frame) {
    // The event by which the back end reports that a window has been moved and resized.
    NSEvent* event = [NSEvent otherEventWithType:NSAppKitDefined
                                        location:frame.origin
                                   modifierFlags:0
                                       timestamp:0
                                    windowNumber:[window windowNumber]
                                         context:[window graphicsContext]
                                         subtype:GSAppKitWindowResized
                                           data1:static_cast<NSInteger>(NSWidth(frame))
                                           data2:static_cast<NSInteger>(NSHeight(frame))];
    guarded([&] {
        [window sendEvent:event];
        [window display];
    });
}

void awaitMapping(NSWindow* window) {
    waitUntil([&] { return isMapped(window) || ![window isVisible]; }, Clock::now() + 1s);
}

void leaveManagedSize(NSWindow* window) {
    if (!hasState(window, managedSizes))
        return;
    changeState(window, StateChange::remove, managedSizes[0], managedSizes[1]);
    changeState(window, StateChange::remove, managedSizes[2], managedSizes[3]);
    // A manager may take the window itself away while only its title bar shows.
    const auto isLeft = [&] {
        return !hasState(window, managedSizes) && (isMapped(window) || ![window isVisible]);
    };
    waitUntil(isLeft, Clock::now() + 500ms);
}

} // namespace vistrel::cocoa::gnustep
