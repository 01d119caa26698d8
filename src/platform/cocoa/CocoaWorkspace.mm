#import "platform/cocoa/CocoaWorkspace.h"

#import "platform/cocoa/Convert.h"
#import "platform/cocoa/Native.h"

#import <Foundation/NSURL.h>

namespace vistrel::cocoa {

std::string CocoaWorkspace::activeApplicationName() const {
    return toString(native::activeApplicationName());
}

void CocoaWorkspace::openURL(const std::string& url) {
    if (NSURL* address = [NSURL URLWithString:toNSString(url)])
        native::openURL(address);
}

void CocoaWorkspace::launch(const std::string& path, const std::vector<std::string>& arguments) {
    native::launch(path, arguments);
}

} // namespace vistrel::cocoa
