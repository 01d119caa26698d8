#pragma once

#import <AppKit/NSApplication.h>
#import <Foundation/NSArray.h>

@class NSWindow;

namespace vistrel::cocoa::gnustep {

/// Calls `visit` for each window of the host, shown or not. None of them is kept alive for longer:
/// the platform's list would keep them until the end of the event, and the window of a menu that
/// has gone before its window must be asked nothing about that menu, by the platform neither.
template <typename Visit> void visitHostWindows(Visit visit) {
    @autoreleasepool {
        for (NSWindow* window in [NSApp windows])
            visit(window);
    }
}

} // namespace vistrel::cocoa::gnustep
