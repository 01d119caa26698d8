#import "platform/cocoa/VTRPreferencesController.h"

#import "platform/cocoa/Guard.h"

@implementation VTRPreferencesController

- (id)initWithPlatform:(vistrel::Platform&)platform {
    if ([super initWithWindowNibName:@"VTRPreferences"] == nil)
        return nil;
    core.emplace(platform, outlets);
    core->init();
    return self;
}

/// The interface file connects the window by this method rather than by the variable.
- (void)setWindow:(NSWindow*)loaded {
    [super setWindow:loaded];
    window = loaded;
}

- (void)awakeFromNib {
    outlets.connectWindow(window);
    outlets.connectAppName(appName);
    vistrel::cocoa::runGuarded([self] { core->awakeFromNib(); });
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
