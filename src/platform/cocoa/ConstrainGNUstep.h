#pragma once

#import <Foundation/NSGeometry.h>

@class NSWindow;

namespace vistrel::cocoa::gnustep {

/// Lets `window` stand at exactly `frame` from now on, where the platform would push it back onto
/// its screen: when it is moved there, and when it is shown again after it was miniaturized or
/// hidden there. Any other frame, and every frame of every other window, is treated as ever.
/// Replaces what was said of this window before.
void letStand(NSWindow* window, NSRect frame);

} // namespace vistrel::cocoa::gnustep
