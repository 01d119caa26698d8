// The window that is run modally: what it says, and which buttons it has.
#import "Probe.h"

namespace {

void collect(NSView* view, NSMutableArray* texts, NSMutableArray* buttons) {
    if ([view isHidden])
        return;
    if ([view isKindOfClass:[NSButton class]] && [[static_cast<NSButton*>(view) title] length] > 0)
        [buttons addObject:view];
    else if ([view isKindOfClass:[NSTextField class]])
        [texts addObject:view];
    for (NSView* part in [view subviews])
        collect(part, texts, buttons);
}

NSRect onScreen(NSView* view) {
    NSRect rect = [view convertRect:[view visibleRect] toView:nil];
    rect.origin = [[view window] convertBaseToScreen:rect.origin];
    return rect;
}

NSDictionary* describeText(NSTextField* field) {
    return @{
        @"text" : [field stringValue],
        @"rect" : probe::rowsFromTop(onScreen(field)),
        // Whether a part of it has to be scrolled to.
        @"whole" : probe::flag(NSEqualRects([field visibleRect], [field bounds])),
    };
}

NSDictionary* describeButton(NSButton* button) {
    return @{
        @"title" : [button title],
        @"keyEquivalent" : [button keyEquivalent],
        @"rect" : probe::rowsFromTop(onScreen(button)),
    };
}

} // namespace

namespace probe {

NSDictionary* modalWindow() {
    NSWindow* window = [NSApp modalWindow];
    if (!window)
        return @{@"shown" : flag(NO)};
    NSMutableArray *texts = [NSMutableArray array], *buttons = [NSMutableArray array];
    collect([window contentView], texts, buttons);
    NSMutableArray *saying = [NSMutableArray array], *offering = [NSMutableArray array];
    for (NSTextField* text in texts)
        [saying addObject:describeText(text)];
    for (NSButton* button in buttons)
        [offering addObject:describeButton(button)];
    return @{
        @"shown" : flag(YES),
        @"number" : @([window windowNumber]),
        @"xid" : identifierOfXServer(window),
        @"key" : flag([window isKeyWindow]),
        @"level" : @([window level]),
        @"texts" : saying,
        @"buttons" : offering,
    };
}

} // namespace probe
