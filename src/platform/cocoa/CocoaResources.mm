#import "platform/cocoa/CocoaResources.h"

#import "platform/cocoa/Convert.h"
#import "platform/cocoa/VTRAboutNIBController.h"
#import "platform/cocoa/VTRPreferencesController.h"

#import <AppKit/NSWindowController.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSString.h>

// Outside our namespace, where the names are those of the Objective-C classes.
namespace {

NSBundle* ownBundle() {
    return [NSBundle bundleForClass:[VTRPreferencesController class]];
}

NSWindowController* newPreferencesController(vistrel::Platform& platform) {
    return [[VTRPreferencesController alloc] initWithPlatform:platform];
}

NSWindowController* newAboutController(vistrel::Platform& platform) {
    return [[VTRAboutNIBController alloc] initWithPlatform:platform];
}

} // namespace

namespace vistrel::cocoa {

std::string CocoaResources::infoText(std::string_view key) const {
    id text = [ownBundle() objectForInfoDictionaryKey:toNSString(key)];
    return [text isKindOfClass:[NSString class]] ? toString(text) : std::string();
}

WindowController* CocoaResources::kept(CocoaWindowController& place,
                                       NSWindowController* controller) {
    place.bind(controller, controller_);
    return controller != nil ? &place : nullptr;
}

WindowController* CocoaResources::makePreferencesController() {
    return kept(preferences_, newPreferencesController(platform_));
}

WindowController* CocoaResources::makeAboutController() {
    return kept(about_, newAboutController(platform_));
}

} // namespace vistrel::cocoa
