#pragma once

#import <Foundation/NSObjCRuntime.h>

#include <cstdint>

@class NSWindow;

namespace vistrel::cocoa::gnustep {

/// The level that the platform gives windows of this kind, as CGWindowLevelForKey answers it for
/// the keys of CGWindowLevel.h: normal (4) and floating (5). 0 for any other key.
std::int32_t windowLevelForKey(std::int32_t key);

/// Puts the window on this level. On the floating one it stays above the windows of other programs
/// whatever happens to those; on any other nothing of that is left. Nothing happens to nil.
void setLevel(NSWindow* window, NSInteger level);

} // namespace vistrel::cocoa::gnustep
