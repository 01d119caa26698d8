#import "platform/cocoa/HostAnimationGNUstep.h"

#import <AppKit/NSAnimation.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSDate.h>
#import <objc/runtime.h>

#include <array>
#include <cstddef>

namespace vistrel::cocoa::gnustep {

namespace {

// On AppKit -setFrame:display:animate: returns when the animation has ended. Here a timer runs it
// afterwards, and its next step would take the window away again. A running animation is known to
// its timer alone and cannot be found, so its step is replaced, at the first move.

/// The window is never messaged, so it does not matter when it is gone.
struct Moved {
    const void* window;
    NSTimeInterval time;
};

constinit std::array<Moved, 16> moves = {};
constinit std::size_t latest = 0;

NSTimeInterval now() {
    return [NSDate timeIntervalSinceReferenceDate];
}

bool hasMovedSince(const void* window, NSTimeInterval time) {
    for (const auto& each : moves)
        if (each.window == window && each.time >= time)
            return true;
    return false;
}

using Step = void (*)(id, SEL, NSAnimationProgress);

constinit Step platformStep = nullptr;

/// Whether the only target of a running animation has been moved since the animation began.
bool isOverridden(NSViewAnimation* animation, NSAnimationProgress progress) {
    NSArray* parts = [animation viewAnimations];
    if ([parts count] != 1 || ![animation isAnimating])
        return false;
    const NSTimeInterval begin = now() - static_cast<double>(progress) * [animation duration];
    id target = [[parts objectAtIndex:0] objectForKey:NSViewAnimationTargetKey];
    return hasMovedSince(target, begin);
}

void step(id animation, SEL selector, NSAnimationProgress progress) {
    if (!isOverridden(animation, progress))
        return platformStep(animation, selector, progress);
    // The plain animation's method knows of no window: it only counts, and ends at one.
    const auto count = class_getMethodImplementation([NSAnimation class], selector);
    reinterpret_cast<Step>(count)(animation, selector, 1);
}

void replaceStep() {
    if (platformStep != nullptr)
        return;
    const Method method =
        class_getInstanceMethod([NSViewAnimation class], @selector(setCurrentProgress:));
    platformStep = reinterpret_cast<Step>(method_getImplementation(method));
    method_setImplementation(method, reinterpret_cast<IMP>(step));
}

} // namespace

void endHostAnimations(NSWindow* window) {
    replaceStep();
    latest = (latest + 1) % moves.size();
    moves[latest] = {window, now()};
}

} // namespace vistrel::cocoa::gnustep
