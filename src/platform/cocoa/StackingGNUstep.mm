#import "platform/cocoa/StackingGNUstep.h"

#import "platform/cocoa/X11GNUstep.h"

#import <AppKit/NSWindow.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xlib.h>
#include <array>
#include <chrono>
#include <thread>

namespace vistrel::cocoa::gnustep {

namespace {

::Window root() {
    return DefaultRootWindow(display());
}

/// A message about `window` to the window manager.
void tellManager(XWindow window, const char* type, const std::array<long, 5>& data) {
    XEvent event{};
    event.xclient.type = ClientMessage;
    event.xclient.window = window;
    event.xclient.message_type = XInternAtom(display(), type, False);
    event.xclient.format = 32;
    for (std::size_t index = 0; index < data.size(); ++index)
        event.xclient.data.l[index] = data[index];
    XSendEvent(display(), root(), False, SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XFlush(display());
}

} // namespace

void setAbove(XWindow window, bool above) {
    constexpr long isApplication = 1;
    const auto state = static_cast<long>(XInternAtom(display(), "_NET_WM_STATE_ABOVE", False));
    tellManager(window, "_NET_WM_STATE", {above ? 1 : 0, state, 0, isApplication, 0});
}

void setRawLevel(XWindow window, NSInteger level) {
    constexpr long levelIsMeant = 1 << 1;
    tellManager(window, "_GNUSTEP_WM_ATTR", {levelIsMeant, level, 0, 0, 0});
}

void raise(XWindow window) {
    XRaiseWindow(display(), window);
    XFlush(display());
}

void putBelow(XWindow window, XWindow other) {
    XEvent event{};
    event.xconfigurerequest.type = ConfigureRequest;
    event.xconfigurerequest.parent = root();
    event.xconfigurerequest.window = window;
    event.xconfigurerequest.above = other;
    event.xconfigurerequest.detail = Below;
    event.xconfigurerequest.value_mask = CWSibling | CWStackMode;
    // As an event, because the server takes no request about windows in different frames.
    XSendEvent(display(), root(), False, SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XFlush(display());
}

bool isWindowMaker() {
    const Atom board = XInternAtom(display(), "_WINDOWMAKER_NOTICEBOARD", False);
    Atom type = None;
    int format = 0;
    unsigned long count = 0;
    unsigned long rest = 0;
    unsigned char* value = nullptr;
    XGetWindowProperty(display(), root(), board, 0, 1, False, AnyPropertyType, &type, &format,
                       &count, &rest, &value);
    if (value != nullptr)
        XFree(value);
    return type != None;
}

bool waitUntilShown(XWindow window) {
    constexpr auto pause = std::chrono::milliseconds(2);
    constexpr int most = 50;
    for (int tries = 0; tries < most; ++tries) {
        XWindowAttributes attributes{};
        if (window == 0 || XGetWindowAttributes(display(), window, &attributes) == 0)
            return false;
        if (attributes.map_state == IsViewable)
            return true;
        std::this_thread::sleep_for(pause);
    }
    return false;
}

const char* displayName() {
    return DisplayString(display());
}

void waitForServer() {
    XSync(display(), False);
}

NSRect toServer(NSRect rect) {
    // Asked anew because the height that Xlib keeps is that of the start.
    ::Window unused = 0;
    int x = 0;
    int y = 0;
    unsigned width = 0;
    unsigned height = 0;
    unsigned border = 0;
    unsigned depth = 0;
    XGetGeometry(display(), root(), &unused, &x, &y, &width, &height, &border, &depth);
    rect.origin.y = height - NSMaxY(rect);
    return rect;
}

} // namespace vistrel::cocoa::gnustep
