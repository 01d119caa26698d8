#import "platform/cocoa/GuardObjC.h"

#import <Foundation/NSException.h>
#import <Foundation/NSString.h>

namespace vistrel::cocoa {

void runGuardedFromObjectiveC(const std::function<void()>& action) {
    @try {
        action();
    } @catch (NSException* exception) {
        logStopped([[exception description] UTF8String]);
    }
}

void logStopped(const char* what) noexcept {
    NSLog(@"Vistrel stopped an exception: %s", what);
}

} // namespace vistrel::cocoa
