#import "platform/cocoa/CocoaPlatform.h"

#import "platform/cocoa/Convert.h"
#import "platform/cocoa/DelayedCall.h"
#import "platform/cocoa/Native.h"

#import <AppKit/NSApplication.h>
#import <AppKit/NSScreen.h>
#import <Foundation/NSBundle.h>
#import <Foundation/NSString.h>

namespace vistrel::cocoa {

std::optional<std::string> CocoaPlatform::bundleIdentifier() const {
    NSString* identifier = [[NSBundle mainBundle] bundleIdentifier];
    return identifier != nil ? std::optional(toString(identifier)) : std::nullopt;
}

std::string CocoaPlatform::bundlePath() const {
    return toString([[NSBundle mainBundle] bundlePath]);
}

std::string CocoaPlatform::localizedString(std::string_view key) const {
    return toString([[NSBundle mainBundle] localizedStringForKey:toNSString(key)
                                                           value:@""
                                                           table:nil]);
}

Menu& CocoaPlatform::mainMenu() {
    return mainMenu_.bind([NSApp mainMenu]);
}

Window& CocoaPlatform::keyWindow() {
    return keyWindow_.bind([NSApp keyWindow]);
}

Window& CocoaPlatform::mainWindow() {
    return mainWindow_.bind([NSApp mainWindow]);
}

std::int32_t CocoaPlatform::screenCount() const {
    return static_cast<std::int32_t>([[NSScreen screens] count]);
}

void CocoaPlatform::setSystemUIMode(SystemUIMode mode) {
    native::setSystemUIMode(mode);
}

std::int32_t CocoaPlatform::windowLevelForKey(std::int32_t key) const {
    return native::windowLevelForKey(key);
}

void CocoaPlatform::showSearchWindow(std::string_view text, std::uint32_t options) {
    native::showSearchWindow(text, options);
}

void CocoaPlatform::performAfterDelay(double seconds, std::function<void()> call) {
    performLater(seconds, std::move(call));
}

bool CocoaPlatform::runAlert(const Alert& alert) {
    return native::runAlert(alert);
}

void CocoaPlatform::terminate() {
    [NSApp terminate:controller_];
}

void CocoaPlatform::log(std::string_view line) {
    NSLog(@"%@", toNSString(line));
}

} // namespace vistrel::cocoa
