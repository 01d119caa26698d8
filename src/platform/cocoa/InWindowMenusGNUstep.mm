#import "platform/cocoa/InWindowMenusGNUstep.h"

#import "platform/cocoa/HostWindowsGNUstep.h"

#import <AppKit/NSMenuView.h>
#import <AppKit/NSView.h>
#import <AppKit/NSWindow.h>
#import <GNUstepGUI/GSTheme.h>
#import <GNUstepGUI/GSWindowDecorationView.h>

#import <objc/runtime.h>

namespace vistrel::cocoa::gnustep {

namespace {

using HeightMethod = float (*)(id, SEL, NSWindow*);

struct Bars {
    bool areHidden = false;
    HeightMethod platformHeight = nullptr;
    /// The hidden bars, because the window of one may be none of the application's for a while.
    NSMutableArray* hidden = nil;
};

Bars& bars() {
    static auto* const theBars = new Bars{.hidden = [[NSMutableArray alloc] init]};
    return *theBars;
}

float height(id theme, SEL selector, NSWindow* window) {
    return bars().areHidden ? 0.0F : bars().platformHeight(theme, selector, window);
}

/// Replaces a method of the platform's theme, for good once a bar has been hidden, though to no
/// effect while none is. Bars are laid out, and frames for contents computed, with the height that
/// the theme gives: an answer of zero is the only thing that makes both agree on a window without a
/// bar. Taking the menu away from the window does not: it resizes the window, and the platform
/// gives the menu back each time any of its items changes.
void replaceHeight() {
    const SEL selector = @selector(menuHeightForWindow:);
    const Class theme = object_getClass([GSTheme theme]);
    const auto ours = reinterpret_cast<IMP>(height);
    const auto present = class_getMethodImplementation(theme, selector);
    if (present == ours)
        return;
    bars().platformHeight = reinterpret_cast<HeightMethod>(present);
    const Method method = class_getInstanceMethod(theme, selector);
    // A class that inherits the method gets one of its own; this fails for one that has it.
    if (!class_addMethod(theme, selector, ours, method_getTypeEncoding(method)))
        method_setImplementation(method, ours);
}

GSWindowDecorationView* decorationOf(NSWindow* window) {
    NSView* const decoration = [[window contentView] superview];
    const bool isOne = [decoration isKindOfClass:[GSWindowDecorationView class]] != NO;
    return isOne ? static_cast<GSWindowDecorationView*>(decoration) : nil;
}

NSView* barOf(NSWindow* window) {
    GSWindowDecorationView* const decoration = decorationOf(window);
    if (decoration == nil || ![decoration hasMenu])
        return nil;
    for (NSView* view in [decoration subviews])
        if ([view isKindOfClass:[NSMenuView class]])
            return view;
    return nil;
}

void layOut(NSView* bar) {
    auto* const decoration = static_cast<GSWindowDecorationView*>([bar superview]);
    [decoration layout];
    [decoration setNeedsDisplay:YES];
}

void hide(NSView* bar) {
    if (bar == nil || [bar isHidden])
        return;
    [bar setHidden:YES];
    [bars().hidden addObject:bar];
    layOut(bar);
}

void show(NSView* bar) {
    [bar setHidden:NO];
    layOut(bar);
}

} // namespace

void setInWindowMenusHidden(bool hidden) {
    if (hidden)
        replaceHeight();
    bars().areHidden = hidden;
    if (hidden) {
        visitHostWindows([](NSWindow* window) { hide(barOf(window)); });
    } else {
        for (NSView* bar in bars().hidden)
            show(bar);
        [bars().hidden removeAllObjects];
    }
}

NSRect inWindowMenuFrame(NSWindow* window) {
    NSView* const bar = barOf(window);
    if (bar == nil)
        return NSZeroRect;
    NSRect frame = [bar convertRect:[bar bounds] toView:nil];
    frame.origin = [window convertBaseToScreen:frame.origin];
    return frame;
}

} // namespace vistrel::cocoa::gnustep
