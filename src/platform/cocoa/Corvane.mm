#import "platform/cocoa/Corvane.h"

#import "core/CorvaneClass.h"
#import "platform/cocoa/CocoaPlatform.h"
#import "platform/cocoa/Guard.h"

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

} // namespace

@implementation Corvane

+ (void)load {
    vistrel::cocoa::runGuarded([] { bundle().corvane.load(bundle().platform); });
}

+ (BOOL)bundleWorksHere {
    return bundle().corvane.bundleWorksHere(bundle().platform) ? YES : NO;
}

+ (NSMenu*)windowMenu {
    auto& menu = vistrel::windowMenu(bundle().platform);
    return static_cast<vistrel::cocoa::CocoaMenu&>(menu).menu();
}

+ (NSMenuItem*)zoomMenuItem {
    auto& item = vistrel::zoomMenuItem(bundle().platform);
    return static_cast<vistrel::cocoa::CocoaMenuItem&>(item).item();
}

@end
