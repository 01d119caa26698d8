#import "platform/cocoa/CocoaWeb.h"

#import "platform/cocoa/Native.h"

#import <Foundation/NSURLCache.h>

namespace vistrel::cocoa {

void CocoaWeb::removeAllCachedResponses() {
    [[NSURLCache sharedURLCache] removeAllCachedResponses];
}

std::optional<std::string> CocoaWeb::textAtURL(const std::string& url) {
    return native::textAtURL(url);
}

} // namespace vistrel::cocoa
