#import "Findings.h"

#import <AppKit/NSApplication.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSData.h>
#import <Foundation/NSDate.h>
#import <Foundation/NSDictionary.h>
#import <Foundation/NSException.h>
#import <Foundation/NSJSONSerialization.h>
#import <Foundation/NSNotification.h>
#import <Foundation/NSObject.h>
#import <Foundation/NSRunLoop.h>
#import <Foundation/NSString.h>
#import <Foundation/NSUserDefaults.h>

#include <unistd.h>

namespace {

/// For a host into which Vistrel cannot be loaded. Much longer than loading takes.
constexpr NSTimeInterval longestLoading = 5;

/// The findings, or why there are none.
NSDictionary* report() {
    @try {
        NSArray* keys =
            [[NSUserDefaults standardUserDefaults] stringArrayForKey:@"VTRDoctorSettings"];
        return vistrel::doctor::findings(keys);
    } @catch (NSException* exception) {
        return @{@"problem" : [exception description]};
    }
}

} // namespace

/// Looks into an application that `vistrel doctor` has started, writes what it finds as JSON to the
/// file that the default VTRDoctorReport names, and ends the application at once: nothing is asked,
/// nothing is saved.
@interface VTRDoctor : NSObject
@end

@implementation VTRDoctor

- (id)init {
    self = [super init];
    NSNotificationCenter* center = [NSNotificationCenter defaultCenter];
    [center addObserver:self
               selector:@selector(hostDidLaunch:)
                   name:NSApplicationDidFinishLaunchingNotification
                 object:nil];
    [center addObserver:self
               selector:@selector(bundleDidLoad:)
                   name:NSBundleDidLoadNotification
                 object:nil];
    // The platform may let go of the object it made, and the notification centre holds nobody.
    return [self retain];
}

- (void)hostDidLaunch:(NSNotification*)notification {
    [self writeReportAfter:longestLoading];
}

/// Vistrel installs itself while it is loaded. What the host makes of that, its menus for one, is
/// there a turn of the run loop later.
- (void)bundleDidLoad:(NSNotification*)notification {
    NSString* name = [[[notification object] bundlePath] lastPathComponent];
    if ([name isEqual:@"Vistrel.bundle"] != NO)
        [self writeReportAfter:0];
}

- (void)writeReportAfter:(NSTimeInterval)seconds {
    [self performSelector:@selector(writeReport)
               withObject:nil
               afterDelay:seconds
                  inModes:[NSArray arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode,
                                                    NSEventTrackingRunLoopMode, nil]];
}

- (void)writeReport {
    NSString* path = [[NSUserDefaults standardUserDefaults] stringForKey:@"VTRDoctorReport"];
    NSData* data = [NSJSONSerialization dataWithJSONObject:report() options:0 error:nullptr];
    _exit([data writeToFile:path atomically:YES] != NO ? 0 : 1);
}

@end
