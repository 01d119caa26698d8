#pragma once

#import <Foundation/NSGeometry.h>

/// What one asks a window manager about the order of windows. Requests are made on the platform's
/// own connection to the X server, and so keep their order with those of the platform.
namespace vistrel::cocoa::gnustep {

/// A window of the X server, 0 for none.
using XWindow = unsigned long;

/// Asks for the window to be kept above those of other programs, or no longer to be.
void setAbove(XWindow window, bool above);

/// Puts the window on any level under Window Maker, which keeps panels and its own dock above
/// windows that are merely "above". Other window managers do not know this message.
void setRawLevel(XWindow window, NSInteger level);

/// To the top of the windows of its level.
void raise(XWindow window);

/// Directly below `other`, a window of any program, under Window Maker. Other managers are known to
/// send a window to the very bottom instead; do not ask them.
void putBelow(XWindow window, XWindow other);

/// Whether Window Maker manages the windows.
bool isWindowMaker();

/// Waits until the window manager has put the window on screen, but not for long. Answers whether
/// it has.
bool waitUntilShown(XWindow window);

/// The name of the display that the platform is connected to.
const char* displayName();

/// Returns when the X server has dealt with everything that the platform has asked of it.
void waitForServer();

/// `rect` in the coordinates of the X server, whose rows run down from the top.
NSRect toServer(NSRect rect);

} // namespace vistrel::cocoa::gnustep
