#import "platform/cocoa/WindowOrderGNUstep.h"

#import "platform/cocoa/HostWindowsGNUstep.h"
#import "platform/cocoa/ServerConnectionGNUstep.h"
#import "platform/cocoa/ServerWatchGNUstep.h"
#import "platform/cocoa/X11GNUstep.h"

#import <AppKit/NSWindow.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <tuple>

namespace vistrel::cocoa::gnustep {

namespace {

/// The managed window that each window in the root window is, or is the frame of.
std::map<xcb_window_t, XWindow> managedByTop() {
    auto& server = watchConnection();
    std::map<xcb_window_t, XWindow> managed;
    for (const auto window : server.property(server.root(), "_NET_CLIENT_LIST_STACKING"))
        managed.emplace(server.topWindow(window), window);
    return managed;
}

/// The managed windows of all programs from the bottom to the top.
std::vector<XWindow> managedFromBottom() {
    const auto managed = managedByTop();
    std::vector<XWindow> order;
    for (const auto top : watchConnection().topWindows())
        if (const auto found = managed.find(top); found != managed.end())
            order.push_back(found->second);
    return order;
}

bool hasType(XWindow window, std::string_view name) {
    auto& server = watchConnection();
    const auto types = server.property(static_cast<xcb_window_t>(window), "_NET_WM_WINDOW_TYPE");
    return !types.empty() && types.front() == server.atom(name);
}

bool isPanel(XWindow window) {
    return hasType(window, "_NET_WM_WINDOW_TYPE_DOCK");
}

/// All windows of the host, shown or not.
std::vector<XWindow> ownWindows() {
    std::vector<XWindow> own;
    visitHostWindows([&own](NSWindow* window) { own.push_back(xWindow(window)); });
    return own;
}

bool contains(const std::vector<XWindow>& windows, XWindow window) {
    return std::ranges::find(windows, window) != windows.end();
}

/// The window of another program that has the keyboard, 0 when there is none.
XWindow focusedForeign() {
    const auto managed = managedByTop();
    auto& server = watchConnection();
    const auto focused = managed.find(server.topWindow(server.focus()));
    const bool isForeign = focused != managed.end() && !contains(ownWindows(), focused->second);
    return isForeign ? focused->second : 0;
}

} // namespace

void sortFromBack(Windows& windows) {
    const auto order = managedFromBottom();
    // The place of one that is not found is the end, which is the front.
    const auto key = [&order](NSWindow* window) {
        return std::tuple([window level], std::ranges::find(order, xWindow(window)));
    };
    std::ranges::stable_sort(windows, {}, key);
}

void raiseAll(const Windows& windows) {
    for (NSWindow* window : windows)
        raise(xWindow(window));
}

bool isInOrder(const Windows& windows, bool coverPanels) {
    std::map<XWindow, NSInteger> levels;
    for (NSWindow* window : windows)
        levels.emplace(xWindow(window), [window level]);
    std::optional<NSInteger> highest;
    for (const auto window : managedFromBottom()) {
        const auto own = levels.find(window);
        if (own == levels.end() ? coverPanels && highest && isPanel(window) : own->second < highest)
            return false;
        if (own != levels.end())
            highest = own->second;
    }
    return true;
}

Places placesOf(const Windows& windows) {
    const auto order = managedFromBottom();
    const auto own = ownWindows();
    Places places;
    for (NSWindow* window : windows) {
        auto& above = places[xWindow(window)];
        const auto place = std::ranges::find(order, xWindow(window));
        std::copy_if(place, order.end(), std::back_inserter(above),
                     [&own](XWindow other) { return !contains(own, other) && !isPanel(other); });
    }
    return places;
}

void restore(const Places& places) {
    const auto order = managedFromBottom();
    const auto focused = focusedForeign();
    for (const auto window : order) {
        const auto place = places.find(window);
        if (place == places.end())
            continue;
        const auto lowest = std::ranges::find_if(order, [&](XWindow other) {
            return other == focused || contains(place->second, other);
        });
        if (lowest != order.end())
            putBelow(window, *lowest);
    }
}

} // namespace vistrel::cocoa::gnustep
