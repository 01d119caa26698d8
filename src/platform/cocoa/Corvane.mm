#import "platform/cocoa/Corvane.h"

#import "core/CorvaneClass.h"
#import "platform/cocoa/CocoaPlatform.h"
#import "platform/cocoa/Guard.h"
#import "platform/cocoa/Native.h"

#import <AppKit/NSMenu.h>
#import <AppKit/NSMenuItem.h>

#if __has_feature(objc_arc)
#error "Vistrel counts references by hand, the same way on both systems; build it without ARC."
#endif

namespace {

/// Made by the load hook rather than at start, so that loading runs no constructor, and never
/// destroyed: the host may send an action until its very end.
struct Bundle {
    vistrel::cocoa::CocoaPlatform platform{[[Corvane alloc] init]};
    vistrel::CorvaneClass corvane;
};

Bundle& bundle() {
    static auto* const theBundle = new Bundle;
    return *theBundle;
}

using Action = void (vistrel::Corvane::*)();

/// Performs an action of the controller for the host that sent it.
void perform(Action action) {
    vistrel::cocoa::runGuarded([action] {
        if (auto* const controller = bundle().corvane.m.get())
            (controller->*action)();
    });
}

} // namespace

@implementation Corvane

+ (void)load {
    vistrel::cocoa::runGuarded([] { bundle().corvane.load(bundle().platform); });
}

+ (BOOL)bundleWorksHere {
    bool works = false;
    vistrel::cocoa::runGuarded(
        [&works] { works = bundle().corvane.bundleWorksHere(bundle().platform); });
    return works ? YES : NO;
}

+ (NSMenu*)windowMenu {
    NSMenu* menu = nil;
    vistrel::cocoa::runGuarded([&menu] {
        auto& found = vistrel::windowMenu(bundle().platform);
        menu = static_cast<vistrel::cocoa::CocoaMenu&>(found).menu();
    });
    return menu;
}

+ (NSMenuItem*)zoomMenuItem {
    NSMenuItem* item = nil;
    vistrel::cocoa::runGuarded([&item] {
        auto& found = vistrel::zoomMenuItem(bundle().platform);
        item = static_cast<vistrel::cocoa::CocoaMenuItem&>(found).item();
    });
    return item;
}

/// While an alert is up it is the key window, which a command would move, or save the frame of.
- (BOOL)validateMenuItem:(NSMenuItem*)item {
    BOOL isValid = YES;
    vistrel::cocoa::runGuarded(
        [&isValid] { isValid = vistrel::cocoa::native::isRunningAlert() ? NO : YES; });
    return isValid;
}

- (void)about:(id)sender {
    perform(&vistrel::Corvane::about);
}

- (void)openWebsite:(id)sender {
    perform(&vistrel::Corvane::openWebsite);
}

- (void)updates:(id)sender {
    perform(&vistrel::Corvane::updates);
}

- (void)quorvix:(id)sender {
    perform(&vistrel::Corvane::quorvix);
}

- (void)preferences:(id)sender {
    perform(&vistrel::Corvane::preferences);
}

- (void)saveWind:(id)sender {
    perform(&vistrel::Corvane::saveWind);
}

- (void)restoreWind:(id)sender {
    perform(&vistrel::Corvane::restoreWind);
}

- (void)left:(id)sender {
    perform(&vistrel::Corvane::left);
}

- (void)right:(id)sender {
    perform(&vistrel::Corvane::right);
}

- (void)threeL:(id)sender {
    perform(&vistrel::Corvane::threeL);
}

- (void)threeM:(id)sender {
    perform(&vistrel::Corvane::threeM);
}

- (void)threeR:(id)sender {
    perform(&vistrel::Corvane::threeR);
}

- (void)center:(id)sender {
    perform(&vistrel::Corvane::center);
}

- (void)centerAverage:(id)sender {
    perform(&vistrel::Corvane::centerAverage);
}

- (void)floating:(id)sender {
    perform(&vistrel::Corvane::floating);
}

- (void)setKUIMode:(id)sender {
    perform(&vistrel::Corvane::setKUIMode);
}

- (void)doFullscreen:(id)sender {
    perform(&vistrel::Corvane::doFullscreen);
}

- (void)makeLionFullscreen:(id)sender {
    perform(&vistrel::Corvane::makeLionFullscreen);
}

- (void)spotlight:(id)sender {
    perform(&vistrel::Corvane::spotlight);
}

- (void)restartFinder {
    perform(&vistrel::Corvane::restartFinder);
}

@end
