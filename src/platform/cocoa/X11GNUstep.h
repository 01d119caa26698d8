#pragma once

#import <Foundation/NSGeometry.h>

#include <chrono>
#include <optional>
#include <span>

@class NSWindow;

struct _XDisplay; // NOLINT(bugprone-reserved-identifier): Xlib's own name of Display

/// What the X server and the window manager know of the host's windows, and the platform does not.
/// Nothing is remembered: a window has no X window while it is deferred, and may get another one
/// whenever it is ordered in. A window without one has no states, no extents and no frame.
namespace vistrel::cocoa::gnustep {

using Clock = std::chrono::steady_clock;

/// The connection of the running back end, or null.
_XDisplay* display();

/// The size of the whole X screen, of all monitors together, in pixels.
NSSize serverSize();

/// The X window that shows `window`, without its decorations; 0 while there is none. Ask anew at
/// each use: a window that was hidden or ordered out may come back as another one.
unsigned long xWindow(NSWindow* window);

/// Whether the X server shows the window, or would if nothing covered it.
bool isMapped(NSWindow* window);

/// The widths of a window's decorations in pixels.
struct Extents {
    CGFloat left = 0;
    CGFloat right = 0;
    CGFloat top = 0;
    CGFloat bottom = 0;
};

/// What the window manager has put around this very window (_NET_FRAME_EXTENTS); nullopt when it
/// does not say, because the window has not been shown yet or there is no such manager.
std::optional<Extents> frameExtents(NSWindow* window);

/// What the platform supposes to be around windows of this style, which it may have learnt under
/// another window manager.
Extents supposedExtents(NSWindow* window);

/// Where the X server has the window, decorations included, in the platform's coordinates: pixels,
/// y upwards from the lower edge of the whole X screen. All zero while there is no X window.
NSRect serverFrame(NSWindow* window);

/// Whether the window manager has given the window one of these states, such as
/// "_NET_WM_STATE_ABOVE".
bool hasState(NSWindow* window, std::span<const char* const> states);

enum class StateChange : long { remove = 0, add = 1 };

/// Asks the window manager for a change of one state, or of two at once. It happens in the
/// manager's own time, and to mapped windows only.
void changeState(NSWindow* window, StateChange change, const char* state,
                 const char* other = nullptr);

/// Gives the keyboard to `window`, if it is mapped and a window of the host has it now. The
/// platform asks for that as of the last event it has seen, and is ignored if the keyboard has gone
/// from one window to another since; this is never too late.
void takeFocus(NSWindow* window);

/// While one lives, what the X server is asked is sent at once, rather than when enough has come
/// together or somebody waits for an answer.
class PromptRequests {
  public:
    PromptRequests();
    ~PromptRequests();
    PromptRequests(const PromptRequests&) = delete;
    PromptRequests& operator=(const PromptRequests&) = delete;
    PromptRequests(PromptRequests&&) = delete;
    PromptRequests& operator=(PromptRequests&&) = delete;

  private:
    _XDisplay* connection_;
    int (*platformFunction_)(_XDisplay*) = nullptr;
};

/// Hands everything that the X server has sent to the back end. Windows learn at once where they
/// are; what the user did stays queued, in order, for the application. No timer, no other input and
/// no part of the run loop is served. Exceptions of the host's delegates are stopped here.
void takeEvents();

/// Waits until the X server has sent something, at most until `limit`. False when nothing came.
bool waitForEvents(Clock::time_point limit);

/// Takes events until `condition` holds, at most until `limit`, and answers whether it holds.
template <typename Condition> bool waitUntil(Condition condition, Clock::time_point limit) {
    for (;;) {
        takeEvents();
        if (condition())
            return true;
        if (!waitForEvents(limit))
            return false;
    }
}

} // namespace vistrel::cocoa::gnustep
