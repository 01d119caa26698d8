#import "platform/cocoa/ServerWatchGNUstep.h"

#import "platform/cocoa/DelayedCall.h"
#import "platform/cocoa/FewTriesGNUstep.h"
#import "platform/cocoa/Guard.h"
#import "platform/cocoa/ServerConnectionGNUstep.h"

#import <Foundation/NSGeometry.h>

#include <cstdlib>
#include <memory>

namespace vistrel::cocoa::gnustep {

namespace {

using Event = std::unique_ptr<xcb_generic_event_t, decltype(&std::free)>;

struct Watch {
    ServerConnection server;
    ServerWatcher watcher{};
    bool watchesWindows = false;
    bool watchesAll = false;
    /// The name of the window manager's list of windows in their order.
    xcb_atom_t order = XCB_ATOM_NONE;
    xcb_window_t edge = 0;
    void (*edgeEntered)() = nullptr;
    /// Whoever wants the top of all windows as well may take it back each time.
    FewTries edgeRaises;
    bool isRaiseDue = false;
};

Watch& watch() {
    static auto* const theWatch = new Watch;
    return *theWatch;
}

/// What a batch of events comes to. It is told at the end, because telling may end the watch.
struct Seen {
    bool isEmpty = true;
    bool hasAppeared = false;
    bool isReordered = false;
    bool hasEntered = false;
};

/// Managers stack windows without regard for ours, which has to stay on top to feel the pointer.
void raiseEdge() {
    if (watch().edge != 0)
        watch().server.raise(watch().edge);
}

void keepEdgeOnTop() {
    if (watch().edge == 0)
        return;
    if (watch().edgeRaises.mayTryAgain()) {
        raiseEdge();
    } else if (!watch().isRaiseDue) {
        watch().isRaiseDue = true;
        performLater(1, [] {
            watch().isRaiseDue = false;
            raiseEdge();
        });
    }
}

void noteMapped(const xcb_map_notify_event_t& event, Seen& seen) {
    if (event.window == watch().edge)
        return;
    keepEdgeOnTop();
    seen.hasAppeared = true;
}

/// Of all that happens to windows, this matters: one has been put right above the edge.
void noteConfigured(const xcb_configure_notify_event_t& event) {
    if (event.above_sibling == watch().edge)
        keepEdgeOnTop();
}

/// A window that leaves is told only by its own watch: the root window tells of frames.
void noteLeft(xcb_window_t teller, xcb_window_t window, void (*told)(XWindow)) {
    if (teller == window && told != nullptr)
        told(window);
}

void note(const xcb_generic_event_t& event, Seen& seen) {
    constexpr int sentByProgram = 0x80;
    switch (event.response_type & ~sentByProgram) {
    case XCB_MAP_NOTIFY:
        return noteMapped(reinterpret_cast<const xcb_map_notify_event_t&>(event), seen);
    case XCB_CONFIGURE_NOTIFY:
        return noteConfigured(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
    case XCB_PROPERTY_NOTIFY: {
        const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
        seen.isReordered |= changed.atom == watch().order;
        return;
    }
    case XCB_UNMAP_NOTIFY: {
        const auto& left = reinterpret_cast<const xcb_unmap_notify_event_t&>(event);
        return noteLeft(left.event, left.window, watch().watcher.windowLeft);
    }
    case XCB_DESTROY_NOTIFY: {
        const auto& died = reinterpret_cast<const xcb_destroy_notify_event_t&>(event);
        return noteLeft(died.event, died.window, watch().watcher.windowDied);
    }
    case XCB_ENTER_NOTIFY:
        seen.hasEntered = true;
        return;
    default:
        // Errors too: a window may have ended before it could be watched.
        return;
    }
}

Seen takeEvents() {
    Seen seen;
    while (const Event event{watch().server.nextEvent(), &std::free}) {
        seen.isEmpty = false;
        note(*event, seen);
    }
    return seen;
}

void pass(const Seen& seen) {
    if (seen.hasAppeared && watch().watchesWindows)
        watch().watcher.windowAppeared();
    if (seen.isReordered && watch().watchesAll)
        watch().watcher.orderChanged();
    if (seen.hasEntered && watch().edge != 0)
        watch().edgeEntered();
}

/// Until there are none: those that arrive while an answer is awaited wake nobody up.
void readEvents() {
    for (auto seen = takeEvents(); !seen.isEmpty; seen = takeEvents())
        pass(seen);
}

void closeIfIdle() {
    if (!watch().watchesWindows && watch().edge == 0)
        watch().server.close();
}

bool beginWindowWatch(const ServerWatcher& watcher) {
    watch().watcher = watcher;
    watch().watchesWindows = watch().server.open([] { runGuarded(readEvents); });
    return watch().watchesWindows;
}

} // namespace

void watchWindow(XWindow window, const ServerWatcher& watcher) {
    if (!beginWindowWatch(watcher))
        return;
    // The request that makes the window takes another way to the server.
    waitForServer();
    watch().server.selectEvents(static_cast<xcb_window_t>(window), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    // And so does the one with which the host takes the window away again.
    watch().server.wait();
}

void watchAllWindows(bool on, const ServerWatcher& watcher) {
    if (on == watch().watchesAll || (on && !beginWindowWatch(watcher)))
        return;
    watch().watchesAll = on;
    if (on)
        watch().order = watch().server.atom("_NET_CLIENT_LIST_STACKING");
    constexpr auto all = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    watch().server.selectEvents(watch().server.root(), on ? all : XCB_EVENT_MASK_NO_EVENT);
}

void endWindowWatch() {
    watchAllWindows(false, watch().watcher);
    watch().watchesWindows = false;
    watch().watcher = {};
    closeIfIdle();
}

ServerConnection& watchConnection() {
    return watch().server;
}

void watchEdge(std::optional<NSRect> edge, void (*entered)()) {
    if (watch().edge != 0)
        watch().server.destroy(watch().edge);
    watch().edge = 0;
    watch().edgeEntered = entered;
    if (edge && watch().server.open([] { runGuarded(readEvents); }))
        watch().edge = watch().server.makeSensor(*edge);
    closeIfIdle();
}

} // namespace vistrel::cocoa::gnustep
