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
        // Whether its first line is in view, and whether nothing has to be scrolled to.
        @"begins" : probe::flag(NSMinY([field visibleRect]) == 0 && [field isFlipped]),
        @"whole" : probe::flag(NSEqualRects([field visibleRect], [field bounds])),
    };
}

NSDictionary* describeButton(NSButton* button) {
    return @{
        @"title" : [button title],
        @"rect" : probe::rowsFromTop(onScreen(button)),
    };
}

} // namespace

namespace probe {

NSDictionary* modalWindow() {
    NSWindow* window = [NSApp modalWindow];
    if (!window)
        return @{};
    NSMutableArray *texts = [NSMutableArray array], *buttons = [NSMutableArray array];
    collect([window contentView], texts, buttons);
    NSMutableArray *saying = [NSMutableArray array], *offering = [NSMutableArray array];
    for (NSTextField* text in texts)
        [saying addObject:describeText(text)];
    for (NSButton* button in buttons)
        [offering addObject:describeButton(button)];
    return @{
        @"class" : NSStringFromClass([window class]),
        @"xid" : identifierOfXServer(window),
        @"texts" : saying,
        @"buttons" : offering,
    };
}

} // namespace probe
