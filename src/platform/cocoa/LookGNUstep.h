#pragma once

#import <AppKit/AppKit.h>

namespace vistrel::cocoa::gnustep {

/// Gives the buttons of `window` the look that they have in this platform's own windows. Interface
/// files describe macOS's: rounded, with room for a shadow in their frames, and with a check mark
/// in front of what a pop-up button has selected, which here is drawn over its border.
void dressButtons(NSWindow* window);

} // namespace vistrel::cocoa::gnustep
