#pragma once

#import <Foundation/NSGeometry.h>

@class NSWindow;

/// The bars that stand for the main menu in the style of Windows 95, one in each of the host's
/// windows.
namespace vistrel::cocoa::gnustep {

/// Takes the bars out of sight, or shows them again. No window changes its frame: its contents take
/// the place of the bar. Windows that come later follow when they are asked to with this again.
void setInWindowMenusHidden(bool hidden);

/// The place of the bar of `window` on screen, all zero when it has none.
NSRect inWindowMenuFrame(NSWindow* window);

} // namespace vistrel::cocoa::gnustep
