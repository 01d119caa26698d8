#import "platform/cocoa/RaisedWindowsGNUstep.h"

#import "platform/cocoa/FewTriesGNUstep.h"
#import "platform/cocoa/Guard.h"
#import "platform/cocoa/HostWindowsGNUstep.h"
#import "platform/cocoa/Observing.h"
#import "platform/cocoa/ServerWatchGNUstep.h"
#import "platform/cocoa/WindowOrderGNUstep.h"
#import "platform/cocoa/X11GNUstep.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSNotification.h>
#import <Foundation/NSObject.h>
#import <Foundation/NSString.h>

#include <algorithm>
#include <utility>

/// Listens to the host while a window is raised.
@interface VTRRaisedWindows : NSObject

- (void)windowWillClose:(NSNotification*)notification;
- (void)eventHandled:(NSNotification*)notification;

@end

namespace vistrel::cocoa::gnustep {

namespace {

/// What the window manager is asked to do with one window.
struct Standing {
    bool floats = false;
    bool covers = false;
    NSInteger level = NSNormalWindowLevel;

    [[nodiscard]] bool isRaised() const { return floats || covers; }

    friend bool operator==(const Standing&, const Standing&) = default;
};

struct Told {
    Standing stand;
    /// Whether the window has left the screen since, which may make the window manager forget.
    bool hasLeft = false;
};

struct Raised {
    Windows floating;
    bool covers = false;
    std::map<XWindow, Told> told;
    /// Where the windows stood before they covered anything.
    Places places;
    /// Where the order cannot be kept, trying to changes it again.
    FewTries sortings;
    id observer = nil;
};

Raised& raised() {
    static auto* const theRaised = new Raised;
    return *theRaised;
}

bool floats(NSWindow* window) {
    return [window level] == NSFloatingWindowLevel &&
           std::ranges::count(raised().floating, window) != 0;
}

/// Icons are part of the desktop rather than windows of the host, and what lies below normal
/// windows is there on purpose.
bool mayCover(NSWindow* window) {
    return ([window styleMask] & (NSIconWindowMask | NSMiniWindowMask)) == 0 &&
           [window level] >= NSNormalWindowLevel;
}

/// Panels, menus and alerts of the host, which a floating window of its own must not keep covered.
bool isOverFloating(NSWindow* window) {
    return !raised().floating.empty() && mayCover(window) &&
           [window level] >= NSFloatingWindowLevel;
}

Standing wanted(NSWindow* window) {
    return {.floats = floats(window) || isOverFloating(window),
            .covers = raised().covers && mayCover(window),
            .level = [window level]};
}

bool needsTelling(NSWindow* window) {
    const auto known = raised().told.find(xWindow(window));
    const auto stand = wanted(window);
    if (known == raised().told.end())
        return stand.isRaised() && [window isVisible];
    return known->second.stand != stand || (known->second.hasLeft && [window isVisible]);
}

bool isShownRaised(NSWindow* window) {
    return [window isVisible] && wanted(window).isRaised();
}

bool isShownAboveNormal(NSWindow* window) {
    return isShownRaised(window) && [window level] > NSNormalWindowLevel;
}

Windows windowsThat(bool (*hold)(NSWindow*)) {
    Windows found;
    visitHostWindows([&](NSWindow* window) {
        if (xWindow(window) != 0 && hold(window))
            found.push_back(window);
    });
    return found;
}

/// Window Maker gives a window a level of its own with the state as well as with the message: what
/// is sent last holds. Its dock and its panels are on level 5, the platform's main menu on 20.
void tell(XWindow window, const Standing& stand) {
    constexpr NSInteger aboveDock = 10;
    const bool isLifted = stand.covers && stand.level < aboveDock;
    if (stand.floats && !stand.covers)
        setRawLevel(window, stand.level);
    setAbove(window, stand.isRaised());
    if (stand.covers || !stand.floats)
        setRawLevel(window, isLifted ? stand.level + aboveDock : stand.level);
}

extern const ServerWatcher raisedWatcher;

void update(NSWindow* window) {
    const auto server = xWindow(window);
    const auto stand = wanted(window);
    tell(server, stand);
    if (!stand.isRaised())
        raised().told.erase(server);
    else if (raised().told.insert_or_assign(server, Told{.stand = stand}).second)
        watchWindow(server, raisedWatcher);
}

Windows united(Windows windows, const Windows& others) {
    for (NSWindow* window : others)
        if (std::ranges::count(windows, window) == 0)
            windows.push_back(window);
    return windows;
}

/// Windows that the window manager has not been told of yet come in front of the others of their
/// level, as the platform has just put them there.
void sortForRaising(Windows& windows) {
    sortFromBack(windows);
    std::ranges::stable_sort(windows, {}, [](NSWindow* window) {
        return std::pair([window level], !raised().told.contains(xWindow(window)));
    });
}

void refresh() {
    const auto changed = windowsThat(needsTelling);
    if (changed.empty())
        return;
    auto order = united(changed, windowsThat(isShownAboveNormal));
    // Found out before anything is asked for, because each request moves a window.
    sortForRaising(order);
    for (NSWindow* window : order)
        if (std::ranges::count(changed, window) != 0)
            update(window);
    std::erase_if(order, [](NSWindow* window) { return !isShownRaised(window); });
    raiseAll(order);
}

void windowLeft(XWindow window) {
    if (const auto known = raised().told.find(window); known != raised().told.end())
        known->second.hasLeft = true;
}

void windowDied(XWindow window) {
    raised().told.erase(window);
}

/// A click raises a window of the host, or a panel that it leaves uncovered, over those above it.
void keepOrder() {
    auto windows = windowsThat(isShownRaised);
    if (isInOrder(windows, raised().covers) || !raised().sortings.mayTryAgain())
        return;
    sortFromBack(windows);
    raiseAll(windows);
}

const ServerWatcher raisedWatcher{.windowAppeared = refresh,
                                  .windowLeft = windowLeft,
                                  .windowDied = windowDied,
                                  .orderChanged = keepOrder};

void followHost() {
    raised().observer = [[VTRRaisedWindows alloc] init];
    observe(raised().observer, @selector(windowWillClose:), NSWindowWillCloseNotification);
    // Whatever else may change a window, such as a new X window for it, is done in some event.
    observe(raised().observer, @selector(eventHandled:), NSApplicationDidUpdateNotification);
}

void leaveHost() {
    endObserving(std::exchange(raised().observer, nil));
    raised().told.clear();
    endWindowWatch();
}

void settle() {
    const bool isIdle = raised().floating.empty() && !raised().covers;
    if (!isIdle && raised().observer == nil)
        followHost();
    watchAllWindows(!isIdle, raisedWatcher);
    refresh();
    if (isIdle && raised().observer != nil)
        leaveHost();
}

void cover() {
    raised().covers = true;
    // Where windows stand is asked on the connection of the watch.
    watchAllWindows(true, raisedWatcher);
    if (isWindowMaker())
        raised().places = placesOf(windowsThat([](NSWindow* window) { return mayCover(window); }));
    settle();
}

/// Window Maker puts a window that changes its level in front of all that are there, and so in
/// front of the window that has just become active.
void uncover() {
    raised().covers = false;
    refresh();
    restore(std::exchange(raised().places, {}));
    settle();
}

} // namespace

void setFloating(NSWindow* window, bool floats) {
    std::erase(raised().floating, window);
    if (floats)
        raised().floating.push_back(window);
    settle();
}

void setCovering(bool covers) {
    if (covers != raised().covers)
        covers ? cover() : uncover();
}

} // namespace vistrel::cocoa::gnustep

using namespace vistrel::cocoa;

@implementation VTRRaisedWindows

- (void)windowWillClose:(NSNotification*)notification {
    std::erase(gnustep::raised().floating, [notification object]);
    runGuarded(gnustep::settle);
}

- (void)eventHandled:(NSNotification*)notification {
    runGuarded(gnustep::refresh);
}

@end
