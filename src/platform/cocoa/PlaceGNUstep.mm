#import "platform/cocoa/PlaceGNUstep.h"

#import "platform/cocoa/ConstrainGNUstep.h"
#import "platform/cocoa/FrameGNUstep.h"
#import "platform/cocoa/GuardObjC.h"

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

// A host that answers each move with one of its own ends up where it wants to be.
constexpr int mostAttempts = 4;

CGFloat wholePixel(CGFloat edge) {
    return std::clamp(std::rint(edge), -farthest, farthest);
}

/// As the platform does it: the smaller limit wins where the two contradict each other, and no
/// greatest size is one of zero.
CGFloat limited(CGFloat size, CGFloat least, CGFloat most) {
    if (most >= 1)
        size = std::min(size, std::floor(most));
    return std::min(std::max(size, std::ceil(least)), farthest);
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

bool hasManagedSize(NSWindow* window) {
    return std::any_of(managedSizes.begin(), managedSizes.end(),
                       [&](const char* state) { return hasState(window, state); });
}

/// A delegate that throws when its window moves has been told of it by then: the move is done.
template <typename Action> void guarded(Action action) {
    @try {
        action();
    } @catch (NSException* exception) {
        logStopped([[exception description] UTF8String]);
    }
}

/// Tells the window, as the back end does, that it has been moved and resized to `frame`.
void tell(NSWindow* window, NSRect frame) {
    NSEvent* event = [NSEvent otherEventWithType:NSAppKitDefined
                                        location:frame.origin
                                   modifierFlags:0
                                       timestamp:0
                                    windowNumber:[window windowNumber]
                                         context:[window graphicsContext]
                                         subtype:GSAppKitWindowResized
                                           data1:static_cast<NSInteger>(NSWidth(frame))
                                           data2:static_cast<NSInteger>(NSHeight(frame))];
    [window sendEvent:event];
}

/// Whether the X server has the window at `frame`; nobody else places one that is not on screen.
bool isPlacedAt(NSWindow* window, NSRect frame) {
    return !isOnScreen(window) || NSEqualRects(serverFrame(window), frame);
}

bool standsAt(NSWindow* window, NSRect frame) {
    return NSEqualRects([window frame], frame) && isPlacedAt(window, frame);
}

/// Whether the window is where the X server has it, or the X server has it at `frame`. Until then
/// the window manager is still about to follow.
bool hasSettled(NSWindow* window, NSRect frame) {
    return isPlacedAt(window, frame) || standsAt(window, [window frame]);
}

/// Brings window and X server together again where they disagree.
void correct(NSWindow* window, NSRect frame) {
    // The back end compares sizes with the last one that the application asked for, not with the
    // one that the user has chosen since. When they are equal, it resizes the X window, but does
    // not tell the window, and no number of equal calls changes that.
    if (isPlacedAt(window, frame))
        guarded([&] {
            tell(window, frame);
            [window display];
        });
    else
        moveTo(window, frame);
}

} // namespace

bool isOnScreen(NSWindow* window) {
    return [window isVisible] != NO && isMapped(window);
}

NSRect attainableFrame(NSWindow* window, NSRect frame) {
    const CGFloat x = wholePixel(NSMinX(frame));
    const CGFloat y = wholePixel(NSMinY(frame));
    const NSSize least = leastSize(window);
    const NSSize most = [window maxSize];
    return NSMakeRect(x, y, limited(wholePixel(NSMaxX(frame)) - x, least.width, most.width),
                      limited(wholePixel(NSMaxY(frame)) - y, least.height, most.height));
}

void moveTo(NSWindow* window, NSRect frame) {
    guarded([&] {
        letStand(window, frame);
        // A window that believes to be there does not ask the back end, which may know better.
        if (NSEqualRects([window frame], frame) && [window windowNumber] > 0)
            [GSServerForWindow(window) placewindow:frame:static_cast<int>([window windowNumber])];
        else
            [window setFrame:frame display:YES];
    });
}

bool moveAndWait(NSWindow* window, NSRect frame, Clock::duration patience) {
    const auto limit = Clock::now() + patience;
    moveTo(window, frame);
    // What the user or the window manager did before this move can come to light only after it.
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        if (!waitUntil([&] { return hasSettled(window, frame); }, limit))
            break;
        if (standsAt(window, frame))
            return true;
        correct(window, frame);
    }
    return waitUntil([&] { return standsAt(window, frame); }, limit);
}

void leaveManagedSize(NSWindow* window) {
    if (!hasManagedSize(window))
        return;
    changeState(window, StateChange::remove, managedSizes[0], managedSizes[1]);
    changeState(window, StateChange::remove, managedSizes[2], managedSizes[3]);
    // A manager may take the window itself away while only its title bar shows.
    const auto isLeft = [&] {
        return !hasManagedSize(window) && (isMapped(window) || ![window isVisible]);
    };
    waitUntil(isLeft, Clock::now() + 500ms);
}

} // namespace vistrel::cocoa::gnustep
