#pragma once

#import <objc/objc.h>

@class NSString;

namespace vistrel::cocoa {

/// Sends `action` to `observer` at each notification with this name, whoever posts it.
void observe(id observer, SEL action, NSString* name);

/// Sends `observer` nothing more, and releases it; not at once, for this may be called from one of
/// its actions.
void endObserving(id observer);

} // namespace vistrel::cocoa
