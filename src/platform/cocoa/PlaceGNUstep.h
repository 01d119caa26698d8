#pragma once

#import "platform/cocoa/X11GNUstep.h"

/// Moves of a window without animation. Frames are those of the platform: pixels with decorations,
/// y upwards from the lower edge of the whole X screen.
namespace vistrel::cocoa::gnustep {

/// Whether the user sees the window, and moving it is the window manager's business.
bool isOnScreen(NSWindow* window);

/// The frame nearest to `frame` that the window can have: its edges on whole pixels, its size
/// within the window's limits and those of X. Where the size has to change, the lower left corner
/// stays, as it does on the platform. All numbers in `frame` must be finite or infinite, none
/// undefined.
NSRect attainableFrame(NSWindow* window, NSRect frame);

/// Sends the window to `frame`, which must be attainable, and redraws it. The window manager may
/// still be about to follow when this returns.
void moveTo(NSWindow* window, NSRect frame);

/// Whether the X server has the window at `frame`; of one that is not on screen, always.
bool isPlacedAt(NSWindow* window, NSRect frame);

/// Whether the window stands at `frame` by its own word and by the X server's.
bool standsAt(NSWindow* window, NSRect frame);

/// Whether nothing more is to be expected of a window that was sent to `frame`: it stands there or
/// elsewhere, or the X server has it there and the window has not been told.
bool hasSettled(NSWindow* window, NSRect frame);

/// Tells the window that it is at `frame`, and lets it draw itself anew.
void tell(NSWindow* window, NSRect frame);

/// Makes the window manager let go of a window that it has maximised or made fill the screen, and
/// waits for it. Such a window does not follow its application.
void leaveManagedSize(NSWindow* window);

/// Waits for the window manager to show a window that has just been told to show itself: until then
/// it has a place of its own in mind for it.
void awaitMapping(NSWindow* window);

} // namespace vistrel::cocoa::gnustep
