#import "platform/cocoa/AlertPanelGNUstep.h"

#import "platform/cocoa/Convert.h"
#import "platform/cocoa/Guard.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSButton.h>
#import <AppKit/NSEvent.h>
#import <AppKit/NSFont.h>
#import <AppKit/NSGraphicsContext.h>
#import <AppKit/NSImageView.h>
#import <AppKit/NSScreen.h>
#import <AppKit/NSScrollView.h>
#import <AppKit/NSScroller.h>
#import <AppKit/NSStringDrawing.h>
#import <AppKit/NSTextField.h>
#import <AppKit/NSView.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSString.h>

#include <algorithm>
#include <cmath>

namespace vistrel::cocoa::gnustep {

namespace {

constexpr CGFloat margin = 16;
constexpr CGFloat gap = 12;
constexpr CGFloat iconSide = 48;
constexpr CGFloat textLeft = margin + iconSide + margin;
constexpr CGFloat textWidth = 360;
constexpr CGFloat panelWidth = textLeft + textWidth + margin;
constexpr CGFloat leastButtonWidth = 80;

/// A text that wraps at the width of the panel.
NSTextField* makeText(std::string_view text, NSFont* font) {
    NSTextField* const field = [[[NSTextField alloc] initWithFrame:NSZeroRect] autorelease];
    [field setEditable:NO];
    [field setSelectable:NO];
    [field setBezeled:NO];
    [field setDrawsBackground:NO];
    [field setFont:font];
    [field setStringValue:toNSString(text)];
    constexpr CGFloat anyHeight = 1e6;
    const NSRect bounds =
        [[field attributedStringValue] boundingRectWithSize:NSMakeSize(textWidth, anyHeight)
                                                    options:NSStringDrawingUsesLineFragmentOrigin];
    [field setFrameSize:NSMakeSize(textWidth, std::ceil(NSHeight(bounds)))];
    return field;
}

/// `field` itself or, when it is higher than `most`, a view of that height to scroll it in.
NSView* limited(NSTextField* field, CGFloat most) {
    if (NSHeight([field frame]) <= most)
        return field;
    const NSRect frame = NSMakeRect(0, 0, textWidth + [NSScroller scrollerWidth], most);
    NSScrollView* const scroll = [[[NSScrollView alloc] initWithFrame:frame] autorelease];
    [scroll setHasVerticalScroller:YES];
    [scroll setDrawsBackground:NO];
    [scroll setDocumentView:field];
    return scroll;
}

NSArray* makeTexts(const Alert& alert) {
    const CGFloat most = std::floor(NSHeight([[NSScreen mainScreen] visibleFrame]) / 4);
    NSTextField* const title = makeText(alert.title, [NSFont boldSystemFontOfSize:14]);
    NSTextField* const message = makeText(alert.message, [NSFont messageFontOfSize:12]);
    return [NSArray arrayWithObjects:limited(title, most), limited(message, 2 * most), nil];
}

NSButton* makeButton(std::string_view title, id target, SEL action) {
    NSButton* const button = [[[NSButton alloc] initWithFrame:NSZeroRect] autorelease];
    [button setButtonType:NSMomentaryPushInButton];
    [button setBezelStyle:NSRoundedBezelStyle];
    [button setTitle:toNSString(title)];
    [button setTarget:target];
    [button setAction:action];
    return button;
}

NSArray* makeButtons(const Alert& alert, VTRAlertPanel* panel) {
    NSMutableArray* const buttons = [NSMutableArray array];
    [buttons addObject:makeButton(alert.defaultButton, panel, @selector(accept:))];
    if (!alert.alternateButton.empty())
        [buttons addObject:makeButton(alert.alternateButton, panel, @selector(performClose:))];
    // Which puts an image into the button, for which there has to be room.
    [panel setDefaultButtonCell:[[buttons objectAtIndex:0] cell]];
    for (NSButton* button in buttons)
        [button sizeToFit];
    return buttons;
}

NSImageView* makeIcon() {
    const NSRect frame = NSMakeRect(0, 0, iconSide, iconSide);
    NSImageView* const icon = [[[NSImageView alloc] initWithFrame:frame] autorelease];
    [icon setImageScaling:NSImageScaleProportionallyDown];
    [icon setImage:[NSApp applicationIconImage]];
    return icon;
}

NSSize largestSize(NSArray* views) {
    NSSize size = NSZeroSize;
    for (NSView* view in views) {
        size.width = std::max(size.width, NSWidth([view frame]));
        size.height = std::max(size.height, NSHeight([view frame]));
    }
    return size;
}

CGFloat heightOfAll(NSArray* views) {
    CGFloat height = 0;
    for (NSView* view in views)
        height += NSHeight([view frame]) + (height > 0 ? gap : 0);
    return height;
}

/// One below the other, from `top` down.
void placeTexts(NSArray* texts, NSView* content, CGFloat top) {
    for (NSView* text in texts) {
        top -= NSHeight([text frame]);
        [text setFrameOrigin:NSMakePoint(textLeft, top)];
        [content addSubview:text];
        top -= gap;
    }
}

/// All of one size, the first one at the right.
void placeButtons(NSArray* buttons, NSView* content) {
    const NSSize largest = largestSize(buttons);
    const CGFloat width = std::max(largest.width, leastButtonWidth);
    CGFloat left = panelWidth - margin - width;
    for (NSButton* button in buttons) {
        [button setFrame:NSMakeRect(left, margin, width, largest.height)];
        [content addSubview:button];
        left -= width + gap;
    }
}

void fill(VTRAlertPanel* panel, const Alert& alert) {
    NSArray* const texts = makeTexts(alert);
    NSArray* const buttons = makeButtons(alert, panel);
    NSImageView* const icon = makeIcon();
    const CGFloat bottom = margin + largestSize(buttons).height + margin;
    const CGFloat top = bottom + std::max(heightOfAll(texts), iconSide);
    [panel setContentSize:NSMakeSize(panelWidth, top + margin)];

    [icon setFrameOrigin:NSMakePoint(margin, top - iconSide)];
    [[panel contentView] addSubview:icon];
    placeTexts(texts, [panel contentView], top);
    placeButtons(buttons, [panel contentView]);
    [panel setInitialFirstResponder:[buttons objectAtIndex:0]];
}

/// Return or Enter, without a modifier.
bool isReturn(NSEvent* event) {
    constexpr NSUInteger modifiers =
        NSShiftKeyMask | NSControlKeyMask | NSAlternateKeyMask | NSCommandKeyMask;
    NSString* const key = [event charactersIgnoringModifiers];
    return ([event modifierFlags] & modifiers) == 0 &&
           ([key isEqualToString:@"\r"] || [key isEqualToString:@"\003"]);
}

} // namespace

} // namespace vistrel::cocoa::gnustep

using namespace vistrel::cocoa;

@implementation VTRAlertPanel

- (id)initWithAlert:(const vistrel::Alert&)alert {
    self = [super initWithContentRect:NSMakeRect(0, 0, gnustep::panelWidth, gnustep::iconSide)
                            styleMask:NSTitledWindowMask | NSClosableWindowMask
                              backing:NSBackingStoreBuffered
                                defer:YES];
    if (self == nil)
        return nil;
    [self setTitle:toNSString(alert.title)];
    [self setHidesOnDeactivate:NO];
    gnustep::fill(self, alert);
    return self;
}

/// Asked before the host's menu. The platform would leave the Enter key of the keypad aside, and
/// would run the host's event loop while it shows the button pressed.
- (BOOL)performKeyEquivalent:(NSEvent*)event {
    if (!gnustep::isReturn(event))
        return [super performKeyEquivalent:event];
    // A key that is still down from the command before is no answer.
    if (![event isARepeat])
        [self accept:self];
    return YES;
}

/// Escape, the alternate button and window managers come here. The alert stays in place until it
/// has ended, so that the keyboard does not leave the host in between.
- (void)close {
    if ([NSApp modalWindow] == self)
        runGuarded([] { [NSApp stopModalWithCode:NSAlertAlternateReturn]; });
    else
        [super close];
}

/// The host may run another window above this one meanwhile, which this is no answer to.
- (void)accept:(id)sender {
    if ([NSApp modalWindow] == self)
        runGuarded([] { [NSApp stopModalWithCode:NSAlertDefaultReturn]; });
}

@end
