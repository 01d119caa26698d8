#import "platform/cocoa/X11GNUstep.h"

#import "platform/cocoa/GuardObjC.h"
#import "platform/cocoa/HostWindowsGNUstep.h"

#import <AppKit/NSWindow.h>
#import <Foundation/NSException.h>
#import <Foundation/NSRunLoop.h>
#import <GNUstepGUI/GSDisplayServer.h>

#include <X11/Xatom.h>
#include <X11/Xlib.h>

#include <poll.h>

namespace vistrel::cocoa::gnustep {

namespace {

int (*platformHandler)(Display*, XErrorEvent*) = nullptr;
unsigned long firstTrapped = 0;

int ignoreTrapped(Display* connection, XErrorEvent* error) {
    return error->serial >= firstTrapped ? 0 : platformHandler(connection, error);
}

/// While one lives, requests that fail are like requests that find nothing. Whoever has the right
/// to may destroy a window between two of them, and the platform's own handler throws through Xlib.
class ErrorTrap {
  public:
    explicit ErrorTrap(Display* connection) {
        firstTrapped = XNextRequest(connection);
        platformHandler = XSetErrorHandler(ignoreTrapped);
    }

    ~ErrorTrap() { XSetErrorHandler(platformHandler); }

    ErrorTrap(const ErrorTrap&) = delete;
    ErrorTrap& operator=(const ErrorTrap&) = delete;
    ErrorTrap(ErrorTrap&&) = delete;
    ErrorTrap& operator=(ErrorTrap&&) = delete;
};

constexpr long mostValues = 64;

/// The values of one of a window's properties; empty when it has none of that type.
class Property {
  public:
    Property(NSWindow* window, const char* name, Atom type) {
        Display* const connection = display();
        const ::Window x = xWindow(window);
        if (x == 0)
            return;
        const ErrorTrap trap(connection);
        Atom found = None;
        int format = 0;
        unsigned long left = 0;
        XGetWindowProperty(connection, x, XInternAtom(connection, name, False), 0, mostValues,
                           False, type, &found, &format, &count_, &left, &bytes_);
        if (found != type || format != 32)
            count_ = 0;
    }

    ~Property() {
        if (bytes_ != nullptr)
            XFree(bytes_);
    }

    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;
    Property(Property&&) = delete;
    Property& operator=(Property&&) = delete;

    [[nodiscard]] unsigned long count() const { return count_; }

    /// Xlib hands out values of 32 bits as longs, whatever their size.
    [[nodiscard]] unsigned long operator[](unsigned long index) const {
        return reinterpret_cast<const unsigned long*>(bytes_)[index];
    }

  private:
    unsigned char* bytes_ = nullptr;
    unsigned long count_ = 0;
};

Extents extentsOf(NSWindow* window) {
    const auto extents = frameExtents(window);
    return extents ? *extents : supposedExtents(window);
}

/// The window without its decorations, y downwards from the top of the X screen.
NSRect serverClient(NSWindow* window) {
    Display* const connection = display();
    const ::Window x = xWindow(window);
    if (x == 0)
        return NSZeroRect;
    const ErrorTrap trap(connection);
    ::Window root = None;
    ::Window child = None;
    int left = 0, top = 0;
    unsigned int width = 0, height = 0, border = 0, depth = 0;
    if (XGetGeometry(connection, x, &root, &left, &top, &width, &height, &border, &depth) == 0 ||
        XTranslateCoordinates(connection, x, root, 0, 0, &left, &top, &child) == False)
        return NSZeroRect;
    return NSMakeRect(left, top, width, height);
}

bool hostHasFocus() {
    ::Window focus = None;
    int revertTo = 0;
    XGetInputFocus(display(), &focus, &revertTo);
    bool isOwn = false;
    visitHostWindows(
        [&](NSWindow* window) { isOwn |= xWindow(window) != 0 && xWindow(window) == focus; });
    return isOwn;
}

} // namespace

Display* display() {
    return static_cast<Display*>([GSCurrentServer() serverDevice]);
}

NSSize serverSize() {
    if (display() == nullptr)
        return NSZeroSize;
    const int screen = XDefaultScreen(display());
    return NSMakeSize(XDisplayWidth(display(), screen), XDisplayHeight(display(), screen));
}

unsigned long xWindow(NSWindow* window) {
    if (display() == nullptr || [window windowNumber] <= 0)
        return 0;
    return reinterpret_cast<unsigned long>([window windowRef]);
}

bool isMapped(NSWindow* window) {
    const ::Window x = xWindow(window);
    if (x == 0)
        return false;
    const ErrorTrap trap(display());
    XWindowAttributes attributes = {};
    return XGetWindowAttributes(display(), x, &attributes) != 0 &&
           attributes.map_state == IsViewable;
}

std::optional<Extents> frameExtents(NSWindow* window) {
    const Property extents(window, "_NET_FRAME_EXTENTS", XA_CARDINAL);
    if (extents.count() != 4)
        return std::nullopt;
    const auto width = [&](unsigned long index) { return static_cast<CGFloat>(extents[index]); };
    return Extents{width(0), width(1), width(2), width(3)};
}

Extents supposedExtents(NSWindow* window) {
    float left = 0, right = 0, top = 0, bottom = 0;
    [GSServerForWindow(window) styleoffsets:&
                                       left:&
                                      right:&
                                        top:&
                                     bottom:static_cast<unsigned int>([window styleMask])];
    return {left, right, top, bottom};
}

NSRect serverFrame(NSWindow* window) {
    const NSRect client = serverClient(window);
    if (NSIsEmptyRect(client))
        return NSZeroRect;
    const Extents extents = extentsOf(window);
    return NSMakeRect(NSMinX(client) - extents.left,
                      serverSize().height - NSMaxY(client) - extents.bottom,
                      NSWidth(client) + extents.left + extents.right,
                      NSHeight(client) + extents.top + extents.bottom);
}

bool hasState(NSWindow* window, std::span<const char* const> states) {
    const Property found(window, "_NET_WM_STATE", XA_ATOM);
    for (unsigned long index = 0; index < found.count(); ++index) {
        for (const char* const state : states)
            if (found[index] == XInternAtom(display(), state, False))
                return true;
    }
    return false;
}

void changeState(NSWindow* window, StateChange change, const char* state, const char* other) {
    Display* const connection = display();
    const ::Window x = xWindow(window);
    if (x == 0)
        return;
    const auto atom = [&](const char* name) {
        return name != nullptr ? static_cast<long>(XInternAtom(connection, name, False)) : 0;
    };
    constexpr long fromAnApplication = 1;
    XEvent event = {};
    event.xclient.type = ClientMessage;
    event.xclient.window = x;
    event.xclient.message_type = XInternAtom(connection, "_NET_WM_STATE", False);
    event.xclient.format = 32;
    event.xclient.data.l[0] = static_cast<long>(change);
    event.xclient.data.l[1] = atom(state);
    event.xclient.data.l[2] = atom(other);
    event.xclient.data.l[3] = fromAnApplication;
    XSendEvent(connection, XDefaultRootWindow(connection), False,
               SubstructureNotifyMask | SubstructureRedirectMask, &event);
    XFlush(connection);
}

void takeFocus(NSWindow* window) {
    if (!isMapped(window) || !hostHasFocus())
        return;
    const ErrorTrap trap(display());
    XSetInputFocus(display(), xWindow(window), RevertToParent, CurrentTime);
    // Until then, what the window manager has done meanwhile may make the request fail.
    XSync(display(), False);
}

PromptRequests::PromptRequests() : connection_(display()) {
    if (connection_ != nullptr)
        platformFunction_ = XSetAfterFunction(connection_, XFlush);
}

PromptRequests::~PromptRequests() {
    if (connection_ != nullptr)
        XSetAfterFunction(connection_, platformFunction_);
}

void takeEvents() {
    // The back end is the run loop's watcher of its own connection; told that there is input, it
    // reads all there is. Turning the run loop would do that too, but would also fire the host's
    // timers in the middle of a command.
    id server = GSCurrentServer();
    if (![server respondsToSelector:@selector(receivedEvent:type:extra:forMode:)])
        return;
    @try {
        [static_cast<id<RunLoopEvents>>(server) receivedEvent:NULL
                                                         type:ET_RDESC
                                                        extra:NULL
                                                      forMode:NSDefaultRunLoopMode];
    } @catch (NSException* exception) {
        logStopped([[exception description] UTF8String]);
    }
}

bool waitForEvents(Clock::time_point limit) {
    if (display() == nullptr)
        return false;
    if (XEventsQueued(display(), QueuedAfterFlush) > 0)
        return true;
    using namespace std::chrono;
    const auto left = std::max(nanoseconds(limit - Clock::now()), nanoseconds::zero());
    const timespec time = {static_cast<time_t>(left / 1s), static_cast<long>((left % 1s).count())};
    pollfd connection = {XConnectionNumber(display()), POLLIN, 0};
    return ppoll(&connection, 1, &time, nullptr) != 0;
}

} // namespace vistrel::cocoa::gnustep
