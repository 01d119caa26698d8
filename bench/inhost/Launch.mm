#import "Launch.h"

#import <AppKit/NSApplication.h>
#import <Foundation/NSNotification.h>
#import <Foundation/NSRunLoop.h>
#import <Foundation/NSString.h>

@interface VTRBenchLaunch : NSObject {
    id receiver;
    SEL selector;
}

@end

@implementation VTRBenchLaunch

- (id)initWithReceiver:(id)aReceiver selector:(SEL)aSelector {
    self = [super init];
    if (self != nil) {
        receiver = [aReceiver retain];
        selector = aSelector;
        [[NSNotificationCenter defaultCenter]
            addObserver:self
               selector:@selector(hostDidLaunch:)
                   name:NSApplicationDidFinishLaunchingNotification
                 object:nil];
    }
    return self;
}

- (void)hostDidLaunch:(NSNotification*)notification {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [receiver performSelector:selector withObject:nil afterDelay:0];
}

@end

namespace vistrel::bench {

void performAfterLaunch(id receiver, SEL selector) {
    // Lives as long as the process.
    [[VTRBenchLaunch alloc] initWithReceiver:receiver selector:selector];
}

} // namespace vistrel::bench
