#pragma once

@class NSWindow;

namespace vistrel::cocoa::gnustep {

/// Makes the controls of `window` what its interface file means, in the look of this platform's own
/// windows. The file describes macOS's buttons: rounded, with room for a shadow in their frames,
/// and with a check mark in front of what a pop-up button has selected, which here is drawn over
/// its border. And it leaves unsaid that a label cannot be edited, which the platform takes for the
/// opposite.
void dressControls(NSWindow* window);

} // namespace vistrel::cocoa::gnustep
