#import "platform/cocoa/VTRAboutNIBController.h"

#import "platform/cocoa/Guard.h"
#import "platform/cocoa/Native.h"

#import <AppKit/NSWindow.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSString.h>

@implementation VTRAboutNIBController

- (id)initWithPlatform:(vistrel::Platform&)platform {
    self = [super initWithWindowNibName:@"VTRAbout"];
    if (self == nil)
        return nil;
    core.emplace(platform, outlets);
    core->init();
    return self;
}

/// A method of its own: the compiler cannot send to super from a lambda.
- (void)loadInterface {
    vistrel::cocoa::native::provideImage([NSBundle bundleForClass:[self class]], @"Vistrel");
    [super loadWindow];
}

/// Without its interface file, or with a damaged one, the controller stays without a window.
- (void)loadWindow {
    vistrel::cocoa::runGuarded([self] { [self loadInterface]; });
}

/// The interface file connects the window by this method rather than by the variable.
- (void)setWindow:(NSWindow*)loaded {
    [super setWindow:loaded];
    window = loaded;
}

- (void)awakeFromNib {
    outlets.connectWindow(window);
    vistrel::cocoa::runGuarded([self] {
        vistrel::cocoa::native::dressControls(window);
        core->awakeFromNib();
    });
}

- (IBAction)openManuals:(id)sender {
    vistrel::cocoa::runGuarded([self] { core->openManuals(); });
}

- (IBAction)openQuorvix:(id)sender {
    vistrel::cocoa::runGuarded([self] { core->openQuorvix(); });
}

- (IBAction)openSupport:(id)sender {
    vistrel::cocoa::runGuarded([self] { core->openSupport(); });
}

- (IBAction)openACK:(id)sender {
    vistrel::cocoa::runGuarded([self] { core->openACK(); });
}

@end
