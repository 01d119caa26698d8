#import "platform/cocoa/DelayedCall.h"

#import "platform/cocoa/Guard.h"

#import <Foundation/NSObject.h>

/// A call that waits for its time. The run loop keeps it until then.
@interface VTRDelayedCall : NSObject {
    std::function<void()>* call;
}

- (id)initWithCall:(std::function<void()>)aCall;

@end

@implementation VTRDelayedCall

- (id)initWithCall:(std::function<void()>)aCall {
    self = [super init];
    if (self != nil)
        call = new std::function<void()>(std::move(aCall));
    return self;
}

- (void)dealloc {
    delete call;
    [super dealloc];
}

- (void)perform {
    vistrel::cocoa::runGuarded(*call);
}

@end

namespace vistrel::cocoa {

void performLater(double seconds, std::function<void()> call) {
    VTRDelayedCall* delayed = [[VTRDelayedCall alloc] initWithCall:std::move(call)];
    [delayed performSelector:@selector(perform) withObject:nil afterDelay:seconds];
    [delayed release];
}

} // namespace vistrel::cocoa
