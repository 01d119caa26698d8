#pragma once

#import <Foundation/NSGeometry.h>

@class NSWindow;

namespace vistrel::cocoa::gnustep {

/// Takes a window whose size no window manager holds to `frame`, step by step, and returns when it
/// is there. The frame must be finite, and somebody must keep the window alive. All else is as
/// setFrameAnimated() of FrameGNUstep.h promises.
void moveAnimated(NSWindow* window, NSRect frame);

} // namespace vistrel::cocoa::gnustep
