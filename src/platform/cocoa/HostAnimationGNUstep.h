#pragma once

@class NSWindow;

namespace vistrel::cocoa::gnustep {

/// An animation of `window` that the host has begun before this moment no longer moves it; it ends
/// at its next step without a word to the window. Those that begin later run as ever.
void endHostAnimations(NSWindow* window);

} // namespace vistrel::cocoa::gnustep
