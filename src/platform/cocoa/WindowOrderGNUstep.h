#pragma once

#import "platform/cocoa/StackingGNUstep.h"

#include <map>
#include <vector>

@class NSWindow;

/// How the host's windows stand among each other and among those of other programs, by the X
/// server's own order, which window managers do not always report.
namespace vistrel::cocoa::gnustep {

using Windows = std::vector<NSWindow*>;

/// Sorts by level, and within one from the back to the front. A window that is too new to have a
/// place yet is in front.
void sortFromBack(Windows& windows);

/// Raises one after the other. Above panels a window manager knows but one layer, so levels hold
/// there only until something else raises a window.
void raiseAll(const Windows& windows);

/// Whether no window is above one of a higher level and, where they are to cover the panels of the
/// desktop, no panel above any.
bool isInOrder(const Windows& windows, bool coverPanels);

/// Which windows of other programs are above each of the host's windows.
using Places = std::map<XWindow, std::vector<XWindow>>;

/// Where `windows` stand now, panels left aside.
Places placesOf(const Windows& windows);

/// Puts the windows, which are above all of the same level, back to where they stood, and below the
/// window of another program that has the keyboard.
void restore(const Places& places);

} // namespace vistrel::cocoa::gnustep
