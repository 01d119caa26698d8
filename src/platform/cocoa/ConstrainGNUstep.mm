#import "platform/cocoa/ConstrainGNUstep.h"

#import <AppKit/NSScreen.h>
#import <AppKit/NSWindow.h>
#import <objc/runtime.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>

namespace vistrel::cocoa::gnustep {

namespace {

// The platform passes each frame of a titled window through -constrainFrameRect:toScreen:, which
// keeps all of it on one screen, and does so again each time the window is shown. A frame that
// covers a whole screen has its title bar above the upper edge, so it would never stand. Neither a
// delegate nor a default is asked, and placing the window behind the platform's back lasts only
// until the window is shown the next time. Hence the method is replaced, at the first move and for
// the classes of moved windows only.

/// The window is never messaged: it may be gone, and another one may have its address. That other
/// one would then have to ask for the very same frame, too.
struct Stand {
    const void* window;
    NSRect frame;
};

// More windows than anybody arranges; of others the oldest is forgotten.
constinit std::array<Stand, 32> stands = {};
constinit std::size_t oldest = 0;

Stand* standOf(const void* window) {
    for (auto& each : stands)
        if (each.window == window)
            return &each;
    return nullptr;
}

Stand& newStand() {
    if (Stand* const unused = standOf(nullptr))
        return *unused;
    oldest = (oldest + 1) % stands.size();
    return stands[oldest];
}

// No decorations are thicker.
constexpr CGFloat thickest = 64;

bool isNear(NSRect a, NSRect b) {
    return std::abs(NSMinX(a) - NSMinX(b)) <= thickest &&
           std::abs(NSMinY(a) - NSMinY(b)) <= thickest &&
           std::abs(NSMaxX(a) - NSMaxX(b)) <= thickest &&
           std::abs(NSMaxY(a) - NSMaxY(b)) <= thickest;
}

/// Whether the window is about to be shown where it was. When a window manager takes the
/// decorations from a window that goes, the window believes itself off by their widths, and is put
/// right when it gets them back. Moving it before then would count in what it does not have.
bool isComingBack(NSWindow* window, NSRect frame, NSRect stand) {
    return ![window isVisible] && NSEqualRects(frame, [window frame]) && isNear(frame, stand);
}

bool maySpan(NSWindow* window, NSRect frame) {
    const Stand* const stand = standOf(window);
    return stand != nullptr &&
           (NSEqualRects(frame, stand->frame) || isComingBack(window, frame, stand->frame));
}

using Constrain = NSRect (*)(id, SEL, NSRect, NSScreen*);

// One replacement for each class, so that each knows the method in whose place it stands, even
// where a class of the host overrides the method and calls the overridden one.
constexpr std::size_t mostClasses = 16;
constinit std::array<Class, mostClasses> classes = {};
constinit std::array<Constrain, mostClasses> originals = {};

template <std::size_t number>
NSRect constrain(id window, SEL selector, NSRect frame, NSScreen* screen) {
    if (maySpan(window, frame))
        return frame;
    return originals[number](window, selector, frame, screen);
}

template <std::size_t... number>
constexpr std::array<Constrain, mostClasses> makeReplacements(std::index_sequence<number...>) {
    return {constrain<number>...};
}

constexpr auto replacements = makeReplacements(std::make_index_sequence<mostClasses>());

void replaceMethod(Class owner, std::size_t number) {
    const SEL selector = @selector(constrainFrameRect:toScreen:);
    const Method method = class_getInstanceMethod(owner, selector);
    const auto mine = reinterpret_cast<IMP>(replacements[number]);
    classes[number] = owner;
    originals[number] = reinterpret_cast<Constrain>(class_getMethodImplementation(owner, selector));
    // On this runtime a change reaches the class that owns the method, and none that inherits it;
    // so a class that inherits it gets one of its own.
    if (class_addMethod(owner, selector, mine, method_getTypeEncoding(method)) == NO)
        method_setImplementation(method, mine);
}

void replaceMethod(Class owner) {
    for (std::size_t number = 0; number < mostClasses; ++number) {
        if (classes[number] == Nil)
            return replaceMethod(owner, number);
        if (classes[number] == owner)
            return;
    }
}

} // namespace

void letStand(NSWindow* window, NSRect frame) {
    if (([window styleMask] & NSTitledWindowMask) == 0)
        return;
    replaceMethod(object_getClass(window));
    Stand* const known = standOf(window);
    (known != nullptr ? *known : newStand()) = {window, frame};
}

} // namespace vistrel::cocoa::gnustep
