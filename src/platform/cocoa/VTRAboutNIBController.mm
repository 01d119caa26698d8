#import "platform/cocoa/VTRAboutNIBController.h"

#import "platform/cocoa/Guard.h"
#import "platform/cocoa/Native.h"

@implementation VTRAboutNIBController

- (id)initWithPlatform:(vistrel::Platform&)platform {
    self = [super initWithWindowNibName:@"VTRAbout"];
    if (self == nil)
        return nil;
    core.emplace(platform, outlets);
    core->init();
    return self;
}

- (void)loadWindow {
    vistrel::cocoa::native::provideImage([NSBundle bundleForClass:[self class]], @"Vistrel");
    [super loadWindow];
}

/// The interface file connects the window by this method rather than by the variable.
- (void)setWindow:(NSWindow*)loaded {
    [super setWindow:loaded];
    window = loaded;
}

- (void)awakeFromNib {
    outlets.connectWindow(window);
    vistrel::cocoa::runGuarded([self] { core->awakeFromNib(); });
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
