#import "platform/cocoa/Observing.h"

#import <Foundation/NSNotification.h>
#import <Foundation/NSString.h>

namespace vistrel::cocoa {

void observe(id observer, SEL action, NSString* name) {
    [[NSNotificationCenter defaultCenter] addObserver:observer
                                             selector:action
                                                 name:name
                                               object:nil];
}

void endObserving(id observer) {
    [[NSNotificationCenter defaultCenter] removeObserver:observer];
    [observer autorelease];
}

} // namespace vistrel::cocoa
