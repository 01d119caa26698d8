#import "platform/cocoa/LevelGNUstep.h"

#include "core/WindowLevel.h"

#import "platform/cocoa/RaisedWindowsGNUstep.h"

#import <AppKit/NSWindow.h>

namespace vistrel::cocoa::gnustep {

std::int32_t windowLevelForKey(std::int32_t key) {
    switch (key) {
    case normalWindowLevelKey:
        return NSNormalWindowLevel;
    case floatingWindowLevelKey:
        return NSFloatingWindowLevel;
    default:
        return 0;
    }
}

void setLevel(NSWindow* window, NSInteger level) {
    if (window == nil)
        return;
    // What the platform tells window managers of its floating level keeps a window above the other
    // ones of its own application only.
    [window setLevel:level];
    setFloating(window, level == NSFloatingWindowLevel);
}

} // namespace vistrel::cocoa::gnustep
