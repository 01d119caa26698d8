#import "platform/cocoa/HidingGNUstep.h"

#import "platform/cocoa/Guard.h"
#import "platform/cocoa/HostMenuGNUstep.h"
#import "platform/cocoa/Observing.h"
#import "platform/cocoa/RaisedWindowsGNUstep.h"
#import "platform/cocoa/ServerWatchGNUstep.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSEvent.h>
#import <AppKit/NSWindow.h>
#import <Foundation/NSDate.h>
#import <Foundation/NSNotification.h>
#import <Foundation/NSObject.h>
#import <Foundation/NSRunLoop.h>
#import <Foundation/NSString.h>
#import <Foundation/NSTimer.h>

#include <utility>

/// Listens to the host while the mode is set, and looks at the pointer while the menu is back.
@interface VTRHiding : NSObject

- (void)applicationBecameActive:(NSNotification*)notification;
- (void)applicationResignedActive:(NSNotification*)notification;
- (void)screensChanged:(NSNotification*)notification;
- (void)keyWindowResigned:(NSNotification*)notification;
- (void)eventHandled:(NSNotification*)notification;
- (void)lookAtPointer:(NSTimer*)timer;

@end

namespace vistrel::cocoa::gnustep {

namespace {

enum class MenuPlace {
    /// Shown as always, because the mode does not hold or must not hide it.
    Usual,
    /// Out of sight until the pointer comes to the edge.
    Away,
    /// Shown until the pointer leaves it.
    Back,
};

struct Hiding {
    SystemUIMode mode = systemUINormal;
    /// Whether the mode holds at this moment.
    bool holds = false;
    MenuPlace menu = MenuPlace::Usual;
    NSTimer* pointerTimer = nil;
    id observer = nil;
};

Hiding& hiding() {
    static auto* const theHiding = new Hiding;
    return *theHiding;
}

/// Not while a menu is tracked, which is done in a mode of its own.
void startPointerTimer() {
    constexpr NSTimeInterval seconds = 0.1;
    hiding().pointerTimer = [NSTimer timerWithTimeInterval:seconds
                                                    target:hiding().observer
                                                  selector:@selector(lookAtPointer:)
                                                  userInfo:nil
                                                   repeats:YES];
    NSRunLoop* const loop = [NSRunLoop mainRunLoop];
    [loop addTimer:hiding().pointerTimer forMode:NSDefaultRunLoopMode];
    [loop addTimer:hiding().pointerTimer forMode:NSModalPanelRunLoopMode];
}

void stopPointerTimer() {
    [hiding().pointerTimer invalidate];
    hiding().pointerTimer = nil;
}

void stopWaiting() {
    watchEdge(std::nullopt, nullptr);
    stopPointerTimer();
}

void bringMenuBack() {
    stopWaiting();
    hiding().menu = MenuPlace::Back;
    showHostMenu();
    startPointerTimer();
}

/// The X server feels the pointer at the edge, so that nothing runs here until it comes.
void awaitPointer() {
    watchEdge(toServer(hostMenuEdge()), bringMenuBack);
}

void sendMenuAway() {
    stopWaiting();
    hiding().menu = MenuPlace::Away;
    hideHostMenu();
    awaitPointer();
}

void showMenuAsUsual() {
    stopWaiting();
    hiding().menu = MenuPlace::Usual;
    showHostMenu();
}

/// The platform and the host show menus and make windows as they like, so this asks again after
/// each event.
void settleMenu() {
    if (!hiding().holds || hiding().menu == MenuPlace::Back)
        return;
    if (!mayHideHostMenu()) {
        if (hiding().menu == MenuPlace::Away)
            showMenuAsUsual();
    } else if (hiding().menu == MenuPlace::Usual) {
        sendMenuAway();
    } else {
        hideHostMenu();
    }
}

/// In the middle of a window's leaving: if it is the last, the platform is about to give the
/// keyboard to the menu.
void keyboardLost() {
    if (hiding().menu != MenuPlace::Away || mayHideHostMenu())
        return;
    showMenuAsUsual();
    showHostMenuForKeyboard();
}

void lookAtPointer() {
    if (!isHostMenuInUse() && !isNearHostMenu([NSEvent mouseLocation]))
        sendMenuAway();
}

void begin() {
    if (hiding().holds)
        return;
    hiding().holds = true;
    setCovering(true);
    settleMenu();
}

void end() {
    if (!hiding().holds)
        return;
    hiding().holds = false;
    showMenuAsUsual();
    setCovering(false);
}

void beginListening() {
    id observer = [[VTRHiding alloc] init];
    observe(observer, @selector(applicationBecameActive:),
            NSApplicationDidBecomeActiveNotification);
    observe(observer, @selector(applicationResignedActive:),
            NSApplicationDidResignActiveNotification);
    observe(observer, @selector(screensChanged:),
            NSApplicationDidChangeScreenParametersNotification);
    observe(observer, @selector(keyWindowResigned:), NSWindowDidResignKeyNotification);
    observe(observer, @selector(eventHandled:), NSApplicationDidUpdateNotification);
    hiding().observer = observer;
}

} // namespace

void setSystemUIMode(SystemUIMode mode) {
    const auto meant = mode == systemUIHidden ? systemUIHidden : systemUINormal;
    if (meant == hiding().mode)
        return;
    hiding().mode = meant;
    if (meant == systemUIHidden) {
        beginListening();
        if ([NSApp isActive])
            begin();
    } else {
        end();
        endObserving(std::exchange(hiding().observer, nil));
    }
}

} // namespace vistrel::cocoa::gnustep

using namespace vistrel::cocoa;

@implementation VTRHiding

- (void)applicationBecameActive:(NSNotification*)notification {
    runGuarded(gnustep::begin);
}

- (void)applicationResignedActive:(NSNotification*)notification {
    runGuarded(gnustep::end);
}

- (void)screensChanged:(NSNotification*)notification {
    runGuarded([] {
        if (gnustep::hiding().menu == gnustep::MenuPlace::Away)
            gnustep::awaitPointer();
    });
}

- (void)keyWindowResigned:(NSNotification*)notification {
    runGuarded(gnustep::keyboardLost);
}

- (void)eventHandled:(NSNotification*)notification {
    runGuarded(gnustep::settleMenu);
}

- (void)lookAtPointer:(NSTimer*)timer {
    runGuarded([] { gnustep::lookAtPointer(); });
}

@end
