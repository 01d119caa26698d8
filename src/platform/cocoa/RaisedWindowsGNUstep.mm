#import "platform/cocoa/RaisedWindowsGNUstep.h"

#import "platform/cocoa/Guard.h"
#import "platform/cocoa/ServerWatchGNUstep.h"

#include <algorithm>
#include <map>
#include <optional>
#include <tuple>
#include <vector>

/// Listens to the host while a window is raised.
@interface VTRRaisedWindows : NSObject

- (void)windowWillClose:(NSNotification*)notification;
- (void)eventHandled:(NSNotification*)notification;

@end

namespace vistrel::cocoa::gnustep {

namespace {

/// What the window manager is asked to do with one window.
struct Stand {
    bool floats = false;
    bool covers = false;
    NSInteger level = NSNormalWindowLevel;

    [[nodiscard]] bool isRaised() const { return floats || covers; }

    friend bool operator==(const Stand&, const Stand&) = default;
};

/// What it has been told, and whether the window has left the screen since, which may make it
/// forget.
struct Told {
    Stand stand;
    bool hasLeft = false;
};

struct Raised {
    std::vector<NSWindow*> floating;
    bool covers = false;
    std::map<XWindow, Told> told;
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

Stand wanted(NSWindow* window) {
    return {.floats = floats(window),
            .covers = raised().covers && mayCover(window),
            .level = [window level]};
}

bool needsTelling(NSWindow* window) {
    const auto known = raised().told.find(serverWindow(window));
    const auto stand = wanted(window);
    if (known == raised().told.end())
        return stand.isRaised() && [window isVisible];
    return known->second.stand != stand || (known->second.hasLeft && [window isVisible]);
}

/// Window Maker gives a window a level of its own with the state as well as with the message: what
/// is sent last holds. Its dock and its panels are on level 5, the platform's main menu on 20.
void tell(XWindow window, const Stand& stand) {
    constexpr NSInteger aboveDock = 10;
    if (stand.floats && !stand.covers)
        setRawLevel(window, stand.level);
    setAbove(window, stand.isRaised());
    if (stand.covers || !stand.floats)
        setRawLevel(window,
                    stand.level + (stand.covers && stand.level < aboveDock ? aboveDock : 0));
}

extern const ServerWatcher watcher;

void update(NSWindow* window) {
    const auto server = serverWindow(window);
    const auto stand = wanted(window);
    tell(server, stand);
    if (!stand.isRaised()) {
        raised().told.erase(server);
        return;
    }
    if (raised().told.insert_or_assign(server, Told{.stand = stand}).second)
        watchWindow(server, watcher);
}

std::vector<NSWindow*> windowsThat(bool (*hold)(NSWindow*)) {
    std::vector<NSWindow*> found;
    for (NSWindow* window in [NSApp windows])
        if (serverWindow(window) != 0 && hold(window))
            found.push_back(window);
    return found;
}

/// By level, and within one from the back to the front. A window that is too new to have a place
/// yet is in front.
void sortFromBack(std::vector<NSWindow*>& windows) {
    NSArray* const order = GSOrderedWindows();
    const auto place = [order](NSWindow* window) {
        const auto index = [order indexOfObjectIdenticalTo:window];
        return index == NSNotFound ? -1 : static_cast<NSInteger>(index);
    };
    std::ranges::stable_sort(windows, [place](NSWindow* one, NSWindow* other) {
        return std::tuple([one level], -place(one)) < std::tuple([other level], -place(other));
    });
}

bool isAboveNormal(NSWindow* window) {
    return [window isVisible] && [window level] > NSNormalWindowLevel && wanted(window).isRaised();
}

/// Above panels and docks a window manager knows but one layer, so what the host has above its
/// documents is raised after them.
std::vector<NSWindow*> withThoseAboveNormal(std::vector<NSWindow*> windows) {
    for (NSWindow* window : windowsThat(isAboveNormal))
        if (std::ranges::count(windows, window) == 0)
            windows.push_back(window);
    sortFromBack(windows);
    return windows;
}

void raiseAll(const std::vector<NSWindow*>& windows) {
    for (NSWindow* window : windows)
        raise(serverWindow(window));
}

void refresh() {
    auto changed = windowsThat(needsTelling);
    if (changed.empty())
        return;
    sortFromBack(changed);
    // Looked up before anything is told, because that moves windows.
    const auto order = withThoseAboveNormal(changed);
    std::ranges::for_each(changed, update);
    if (raised().covers)
        raiseAll(order);
}

void windowLeft(XWindow window) {
    const auto known = raised().told.find(window);
    if (known != raised().told.end())
        known->second.hasLeft = true;
}

void windowDied(XWindow window) {
    raised().told.erase(window);
}

bool isShownRaised(NSWindow* window) {
    return [window isVisible] && wanted(window).isRaised();
}

/// Whether, from the bottom to the top, no window of the host comes after one of a higher level and
/// no panel after any of them.
bool isOrderKept(const std::vector<NSWindow*>& windows) {
    std::map<XWindow, NSInteger> levels;
    for (NSWindow* window : windows)
        levels.emplace(serverWindow(window), [window level]);
    std::optional<NSInteger> highest;
    for (const auto window : managedWindows()) {
        const auto own = levels.find(window);
        if (own == levels.end() ? highest && isPanel(window) : own->second < highest)
            return false;
        if (own != levels.end())
            highest = own->second;
    }
    return true;
}

/// At most a few times in a second: where it cannot be kept, trying changes the order again.
bool mayTryAgain() {
    constexpr int most = 5;
    static NSTimeInterval since = 0;
    static int tries = 0;
    const NSTimeInterval now = [NSDate timeIntervalSinceReferenceDate];
    if (now < since || now > since + 1) {
        since = now;
        tries = 0;
    }
    return ++tries <= most;
}

/// A click raises a window of the host, or a panel that it leaves uncovered, over those above it.
void keepOrder() {
    auto windows = windowsThat(isShownRaised);
    if (!raised().covers || isOrderKept(windows) || !mayTryAgain())
        return;
    sortFromBack(windows);
    raiseAll(windows);
}

const ServerWatcher watcher{.windowAppeared = refresh,
                            .windowLeft = windowLeft,
                            .windowDied = windowDied,
                            .orderChanged = keepOrder};

bool isIdle() {
    return raised().floating.empty() && !raised().covers;
}

void observe(SEL action, NSString* name) {
    [[NSNotificationCenter defaultCenter] addObserver:raised().observer
                                             selector:action
                                                 name:name
                                               object:nil];
}

void beginObserving() {
    if (raised().observer != nil)
        return;
    raised().observer = [[VTRRaisedWindows alloc] init];
    observe(@selector(windowWillClose:), NSWindowWillCloseNotification);
    // Whatever else may change a window, such as a new X window for it, is done in some event.
    observe(@selector(eventHandled:), NSApplicationDidUpdateNotification);
}

void endObserving() {
    [[NSNotificationCenter defaultCenter] removeObserver:raised().observer];
    [raised().observer autorelease];
    raised().observer = nil;
    raised().told.clear();
    endWindowWatch();
}

void settle() {
    if (!isIdle())
        beginObserving();
    refresh();
    if (isIdle() && raised().observer != nil)
        endObserving();
}

} // namespace

void setFloating(NSWindow* window, bool floats) {
    std::erase(raised().floating, window);
    if (floats)
        raised().floating.push_back(window);
    settle();
}

void setCovering(bool covers) {
    raised().covers = covers;
    watchAllWindows(covers, watcher);
    settle();
}

} // namespace vistrel::cocoa::gnustep

using namespace vistrel::cocoa;

@implementation VTRRaisedWindows

- (void)windowWillClose:(NSNotification*)notification {
    gnustep::setFloating([notification object], false);
}

- (void)eventHandled:(NSNotification*)notification {
    runGuarded(gnustep::refresh);
}

@end
