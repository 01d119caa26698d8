// Windows and screens as the host believes them to be. What the X server says
// of the same windows is asked elsewhere, so that a test can compare the two.
#import "Probe.h"

namespace {

id collectionBehavior(NSWindow* window) {
    if (![window respondsToSelector:@selector(collectionBehavior)])
        return [NSNull null];
    return @([window collectionBehavior]);
}

NSDictionary* describe(NSWindow* window) {
    return @{
        @"number" : @([window windowNumber]),
        @"xid" : probe::identifierOfXServer(window),
        @"class" : NSStringFromClass([window class]),
        @"title" : probe::orNull([window title]),
        @"frame" : probe::numbers([window frame]),
        @"level" : @([window level]),
        @"visible" : probe::flag([window isVisible]),
        @"miniaturized" : probe::flag([window isMiniaturized]),
        @"edited" : probe::flag([window isDocumentEdited]),
        @"key" : probe::flag([window isKeyWindow]),
        @"main" : probe::flag([window isMainWindow]),
        @"canBecomeMain" : probe::flag([window canBecomeMainWindow]),
        @"styleMask" : @([window styleMask]),
        @"collectionBehavior" : collectionBehavior(window),
    };
}

} // namespace

namespace probe {

NSDictionary* windows() {
    NSMutableArray* all = [NSMutableArray array];
    for (NSWindow* window in [NSApp windows])
        [all addObject:describe(window)];
    return @{@"windows" : all};
}

NSDictionary* screens() {
    NSMutableArray* all = [NSMutableArray array];
    for (NSScreen* screen in [NSScreen screens])
        [all addObject:@{
            @"frame" : numbers([screen frame]),
            @"visibleFrame" : numbers([screen visibleFrame]),
            @"isMain" : @(screen == [NSScreen mainScreen]),
        }];
    return @{@"screens" : all};
}

} // namespace probe
