#import "VTRLoader.h"

#include "ProgramFile.h"

#import <AppKit/NSApplication.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSNotification.h>
#import <Foundation/NSRunLoop.h>
#import <Foundation/NSString.h>
#import <Foundation/NSUserDefaults.h>

namespace {

/// Whether `bundle` has been loaded. Nothing that is wrong with it reaches the host.
bool load(NSBundle* bundle) {
    NSString* program = [bundle executablePath];
    if (program == nil || !vistrel::loader::isWholeProgram([program fileSystemRepresentation]))
        return false;
    @try {
        return [bundle load];
    } @catch (id exception) {
        return false;
    }
}

/// Whether the user has switched Vistrel off, for this application or for all that are not
/// excepted.
bool isSwitchedOff() {
    NSUserDefaults* defaults = [NSUserDefaults standardUserDefaults];
    return [defaults objectForKey:@"VTREnabled"] != nil && ![defaults boolForKey:@"VTREnabled"];
}

} // namespace

@implementation VTRLoader

- (id)init {
    self = [super init];
    if (isSwitchedOff())
        return self;
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(hostDidLaunch:)
                                                 name:NSApplicationDidFinishLaunchingNotification
                                               object:nil];
    // The platform may let go of the object it made, and the notification centre holds nobody.
    return [self retain];
}

/// The host's own code hears of the launch in the same round of notifications, perhaps after us,
/// and makes its menus and windows then. So the loading waits for the next turn of the run loop,
/// also when the host has started a modal session or is following the mouse by that time.
- (void)hostDidLaunch:(NSNotification*)notification {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [self performSelector:@selector(loadVistrel)
               withObject:nil
               afterDelay:0
                  inModes:[NSArray arrayWithObjects:NSDefaultRunLoopMode, NSModalPanelRunLoopMode,
                                                    NSEventTrackingRunLoopMode, nil]];
}

- (void)loadVistrel {
    // Another loader, of another copy of Vistrel perhaps, may have been faster.
    if (NSClassFromString(@"Corvane") != Nil)
        return;
    NSString* folder =
        [[[NSBundle bundleForClass:[self class]] bundlePath] stringByDeletingLastPathComponent];
    NSString* path = [folder stringByAppendingPathComponent:@"Vistrel.bundle"];
    if (!load([NSBundle bundleWithPath:path]))
        NSLog(@"Vistrel cannot be loaded from %@", path);
}

@end
