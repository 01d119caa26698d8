// The principal class: which request goes to which subject. The probe only
// looks; it does no more than `quit`, the same as the user's Quit item, and
// `perform`, for what no item of the menus does.
#import "Probe.h"

#include <cstdlib>

@implementation VTRProbe

- (id)init {
    if (!(self = [super init]))
        return nil;
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(hostDidFinishLaunching:)
                                                 name:NSApplicationDidFinishLaunchingNotification
                                               object:nil];
    [[NSNotificationCenter defaultCenter] addObserver:self
                                             selector:@selector(menuDidSendAction:)
                                                 name:NSMenuDidSendActionNotification
                                               object:nil];
    // GNUstep makes one more instance of a principal class than it keeps, and
    // a second listener would take the path away from the first.
    static bool serving = false;
    const char* path = std::getenv("VTR_PROBE_SOCKET");
    if (serving || !path)
        return self;
    serving = true;
    server = [[VTRProbeServer alloc] initWithAnswerer:self];
    if (![server listenAt:[NSString stringWithUTF8String:path]])
        NSLog(@"probe: cannot listen at %s", path);
    [self retain]; // for as long as the host runs
    return self;
}

- (void)dealloc {
    [[NSNotificationCenter defaultCenter] removeObserver:self];
    [server release];
    [lastAction release];
    [super dealloc];
}

- (void)hostDidFinishLaunching:(NSNotification*)notification {
    launched = YES;
}

- (void)menuDidSendAction:(NSNotification*)notification {
    ++actions;
    [lastAction release];
    lastAction = [[[[notification userInfo] objectForKey:@"MenuItem"] title] copy];
}

- (NSDictionary*)state {
    NSBundle* bundle = [NSBundle mainBundle];
    return @{
        @"actions" : @(actions),
        @"lastAction" : probe::orNull(lastAction),
        @"launched" : probe::flag(launched),
        @"active" : probe::flag([NSApp isActive]),
        @"hidden" : probe::flag([NSApp isHidden]),
        // What the host is doing: waiting for events, tracking the mouse, modal.
        @"mode" : probe::orNull([[NSRunLoop currentRunLoop] currentMode]),
        @"processName" : [[NSProcessInfo processInfo] processName],
        @"home" : NSHomeDirectory(),
        @"bundlePath" : probe::orNull([bundle bundlePath]),
        @"bundleIdentifier" : probe::orNull([bundle bundleIdentifier]),
        @"keyWindow" : probe::numberOf([NSApp keyWindow]),
        @"mainWindow" : probe::numberOf([NSApp mainWindow]),
        @"modalWindow" : probe::numberOf([NSApp modalWindow]),
    };
}

// Not at once: the reply has to leave first, and the host may ask its user.
- (NSDictionary*)quit {
    NSArray* modes = @[ NSDefaultRunLoopMode, NSModalPanelRunLoopMode, NSEventTrackingRunLoopMode ];
    [NSApp performSelector:@selector(terminate:) withObject:nil afterDelay:0 inModes:modes];
    return @{@"quitting" : @(true)};
}

- (NSDictionary*)dispatch:(NSString*)name argument:(NSString*)argument {
    if ([name isEqualToString:@"state"])
        return [self state];
    if ([name isEqualToString:@"menu"])
        return probe::mainMenu();
    if ([name isEqualToString:@"windows"])
        return probe::windows();
    if ([name isEqualToString:@"modal-window"])
        return probe::modalWindow();
    if ([name isEqualToString:@"controls"])
        return probe::controls(argument);
    if ([name isEqualToString:@"screens"])
        return probe::screens();
    if ([name isEqualToString:@"default"])
        return probe::userDefault(argument);
    if ([name isEqualToString:@"classes"])
        return probe::classes(argument);
    if ([name isEqualToString:@"perform"])
        return probe::perform(argument);
    if ([name isEqualToString:@"quit"])
        return [self quit];
    return @{@"error" : [@"unknown request: " stringByAppendingString:name]};
}

- (NSDictionary*)answerTo:(NSString*)request {
    NSRange space = [request rangeOfString:@" "];
    if (space.length == 0)
        return [self dispatch:request argument:@""];
    return [self dispatch:[request substringToIndex:space.location]
                 argument:[request substringFromIndex:NSMaxRange(space)]];
}

@end

namespace probe {

id orNull(id value) {
    return value ? value : [NSNull null];
}

NSNumber* flag(BOOL value) {
    return [NSNumber numberWithBool:value];
}

id numberOf(NSWindow* window) {
    return orNull(window ? @([window windowNumber]) : nil);
}

NSNumber* identifierOfXServer(NSWindow* window) {
    return [NSNumber numberWithUnsignedLong:reinterpret_cast<uintptr_t>([window windowRef])];
}

NSArray* numbers(NSRect rect) {
    return @[ @(NSMinX(rect)), @(NSMinY(rect)), @(NSWidth(rect)), @(NSHeight(rect)) ];
}

// The X server counts rows from the top of its whole screen. The monitors'
// highest edge is that top, in the platform's coordinates.
NSArray* rowsFromTop(NSRect rect) {
    CGFloat top = 0;
    for (NSScreen* screen in [NSScreen screens])
        top = MAX(top, NSMaxY([screen frame]));
    rect.origin.y = top - NSMaxY(rect);
    return numbers(rect);
}

} // namespace probe
