#import "platform/cocoa/CocoaWindow.h"

#import "platform/cocoa/Convert.h"
#import "platform/cocoa/Native.h"

#import <AppKit/NSWindow.h>

namespace vistrel::cocoa {

Screen& CocoaScreen::bind(NSWindow* window) {
    window_ = window;
    return *this;
}

Rect CocoaScreen::frame() const {
    return toRect(native::screenFrame(window_));
}

Window& CocoaWindow::bind(NSWindow* window) {
    window_ = window;
    return *this;
}

Rect CocoaWindow::frame() const {
    return window_ != nil ? toRect([window_ frame]) : Rect{};
}

Screen& CocoaWindow::screen() {
    return screen_.bind(window_);
}

void CocoaWindow::setFrameAnimated(const Rect& frame) {
    native::setFrameAnimated(window_, toNSRect(frame));
}

Rect CocoaWindow::frameRectForContentRect(const Rect& content) const {
    return toRect(native::frameRectForContentRect(window_, toNSRect(content)));
}

void CocoaWindow::center() {
    native::center(window_);
}

void CocoaWindow::setLevel(std::int64_t level) {
    native::setLevel(window_, static_cast<NSInteger>(level));
}

void CocoaWindow::setCollectionBehavior(std::uint64_t behavior) {
    [window_ setCollectionBehavior:static_cast<NSWindowCollectionBehavior>(behavior)];
}

void CocoaWindow::makeKeyAndOrderFront() {
    [window_ makeKeyAndOrderFront:nil];
}

} // namespace vistrel::cocoa
