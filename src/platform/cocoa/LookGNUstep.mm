#import "platform/cocoa/LookGNUstep.h"

#import <AppKit/NSButton.h>
#import <AppKit/NSMenuItem.h>
#import <AppKit/NSPopUpButton.h>
#import <AppKit/NSTextField.h>
#import <AppKit/NSView.h>
#import <AppKit/NSWindow.h>

namespace vistrel::cocoa::gnustep {

namespace {

// What a button has that is made on this platform; it has no name there.
constexpr auto ownBezelStyle = static_cast<NSBezelStyle>(0);

// What Interface Builder adds around the visible part of a button, in points.
constexpr NSSize pushButtonShadow = {6, 4};
constexpr NSSize popUpButtonShadow = {0, 2};

void removeCheckMarks(NSPopUpButton* button) {
    for (NSMenuItem* item in [button itemArray])
        [item setOnStateImage:nil];
}

void dress(NSButton* button) {
    if ([button bezelStyle] != NSRoundedBezelStyle)
        return;
    const bool isPopUp = [button isKindOfClass:[NSPopUpButton class]];
    const NSSize shadow = isPopUp ? popUpButtonShadow : pushButtonShadow;
    [button setBezelStyle:ownBezelStyle];
    [button setFrame:NSInsetRect([button frame], shadow.width, shadow.height)];
    if (isPopUp)
        removeCheckMarks(static_cast<NSPopUpButton*>(button));
}

bool isLabel(NSTextField* field) {
    return ![field isBezeled] && ![field isBordered];
}

void dressControlsIn(NSView* view) {
    if ([view isKindOfClass:[NSButton class]])
        dress(static_cast<NSButton*>(view));
    else if ([view isKindOfClass:[NSTextField class]] && isLabel(static_cast<NSTextField*>(view)))
        [static_cast<NSTextField*>(view) setEditable:NO];
    for (NSView* subview in [view subviews])
        dressControlsIn(subview);
}

} // namespace

void dressControls(NSWindow* window) {
    dressControlsIn([window contentView]);
}

} // namespace vistrel::cocoa::gnustep
