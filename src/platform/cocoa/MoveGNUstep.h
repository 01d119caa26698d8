#pragma once

#import <AppKit/AppKit.h>

namespace vistrel::cocoa::gnustep {

/// Takes a window that may go where it wants to `frame`, step by step, and returns when it is
/// there: what setFrameAnimated() of FrameGNUstep.h promises, for a finite frame and a window that
/// somebody keeps alive.
void moveAnimated(NSWindow* window, NSRect frame);

} // namespace vistrel::cocoa::gnustep
