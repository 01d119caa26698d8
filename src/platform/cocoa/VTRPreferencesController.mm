#import "platform/cocoa/VTRPreferencesController.h"

#import "platform/cocoa/Guard.h"
#import "platform/cocoa/Native.h"

#import <AppKit/NSWindow.h>
#import <Foundation/NSString.h>

@implementation VTRPreferencesController

- (id)initWithPlatform:(vistrel::Platform&)platform {
    if ([super initWithWindowNibName:@"VTRPreferences"] == nil)
        return nil;
    // NOLINTNEXTLINE(clang-analyzer-osx.cocoa.SelfInit): the answer is tested, and nothing else
    core.emplace(platform, outlets);
    core->init();
    return self;
}

/// A method of its own: the compiler cannot send to super from a lambda.
- (void)loadInterface {
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
    outlets.connectAppName(appName);
    vistrel::cocoa::runGuarded([self] {
        vistrel::cocoa::native::dressControls(window);
        bindings = [vistrel::cocoa::native::connectBindings(window) retain];
        core->awakeFromNib();
    });
}

- (void)dealloc {
    [bindings release];
    [super dealloc];
}

- (IBAction)savePreferences:(id)sender {
    vistrel::cocoa::runGuarded([self] { core->savePreferences(); });
}

- (IBAction)openQuorvix:(id)sender {
    vistrel::cocoa::runGuarded([self] { core->openQuorvix(); });
}

- (IBAction)openManual:(id)sender {
    vistrel::cocoa::runGuarded([self] { core->openManual(); });
}

@end
