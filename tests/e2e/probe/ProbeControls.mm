// The controls of a window: what they show, and where a mouse finds them.
#import "Probe.h"

namespace {

/// Text that is edited belongs to an editor that stands in for its field.
bool hasFocus(NSControl* control) {
    id first = [[control window] firstResponder];
    if ([first isKindOfClass:[NSText class]] && [first isFieldEditor])
        first = [first delegate];
    return first == control;
}

id titleOf(id control) {
    return probe::orNull([control respondsToSelector:@selector(title)] ? [control title] : nil);
}

id stateOf(id control) {
    return probe::orNull([control respondsToSelector:@selector(state)] ? @([control state]) : nil);
}

NSArray* choicesOf(id control) {
    return [control isKindOfClass:[NSPopUpButton class]] ? [control itemTitles] : @[];
}

NSDictionary* describe(NSControl* control) {
    NSRect rect = [control convertRect:[control bounds] toView:nil];
    rect.origin = [[control window] convertBaseToScreen:rect.origin];
    return @{
        @"class" : NSStringFromClass([control class]),
        @"title" : titleOf(control),
        @"value" : probe::orNull([control stringValue]),
        @"state" : stateOf(control),
        @"choices" : choicesOf(control),
        @"action" : probe::orNull([control action] ? NSStringFromSelector([control action]) : nil),
        @"enabled" : probe::flag([control isEnabled]),
        @"focused" : @(hasFocus(control)),
        @"rect" : probe::rowsFromTop(rect),
    };
}

void addControls(NSView* view, NSMutableArray* found) {
    if ([view isHidden])
        return;
    if ([view isKindOfClass:[NSControl class]])
        [found addObject:describe(static_cast<NSControl*>(view))];
    for (NSView* below in [view subviews])
        addControls(below, found);
}

} // namespace

namespace probe {

NSDictionary* controls(NSString* number) {
    NSMutableArray* found = [NSMutableArray array];
    NSWindow* window = [NSApp windowWithWindowNumber:[number integerValue]];
    if (window)
        addControls([window contentView], found);
    return @{@"controls" : found};
}

} // namespace probe
