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

/// What a user takes it for.
NSString* kindOf(NSControl* control) {
    if ([control isKindOfClass:[NSPopUpButton class]])
        return @"choice";
    if ([control isKindOfClass:[NSTextField class]])
        return [static_cast<NSTextField*>(control) isEditable] ? @"field" : @"label";
    if (![control isKindOfClass:[NSButton class]])
        return @"other";
    return [static_cast<NSButton*>(control) isBordered] ? @"button" : @"check";
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

id selectedIndexOf(id control) {
    return probe::orNull(
        [control isKindOfClass:[NSPopUpButton class]] ? @([control indexOfSelectedItem]) : nil);
}

/// Of a pop-up button, while its user chooses.
id openMenuOf(id control) {
    return [control isKindOfClass:[NSPopUpButton class]] ? probe::openMenu([control menu])
                                                         : [NSNull null];
}

NSDictionary* describe(NSControl* control) {
    NSRect rect = [control convertRect:[control bounds] toView:nil];
    rect.origin = [[control window] convertBaseToScreen:rect.origin];
    return @{
        @"class" : NSStringFromClass([control class]),
        @"kind" : kindOf(control),
        @"title" : titleOf(control),
        @"value" : probe::orNull([control stringValue]),
        @"state" : stateOf(control),
        @"choices" : choicesOf(control),
        @"index" : selectedIndexOf(control),
        @"menu" : openMenuOf(control),
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
