#import "platform/cocoa/CocoaWindow.h"

#import "platform/cocoa/Convert.h"

namespace vistrel::cocoa {

Window& CocoaWindow::bind(NSWindow* window) {
    window_ = window;
    return *this;
}

Rect CocoaWindow::frame() const {
    return window_ != nil ? toRect([window_ frame]) : Rect{};
}

void CocoaWindow::setFrameAnimated(const Rect& frame) {
    [window_ setFrame:toNSRect(frame) display:YES];
}

void CocoaWindow::setCollectionBehavior(std::uint64_t behavior) {
    [window_ setCollectionBehavior:static_cast<NSWindowCollectionBehavior>(behavior)];
}

} // namespace vistrel::cocoa
