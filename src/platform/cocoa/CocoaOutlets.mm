#import "platform/cocoa/CocoaOutlets.h"

#import "platform/cocoa/Convert.h"

#import <AppKit/NSTextField.h>

namespace vistrel::cocoa {

void CocoaOutlets::setAppName(std::string_view name) {
    [appName_ setStringValue:toNSString(name)];
}

} // namespace vistrel::cocoa
