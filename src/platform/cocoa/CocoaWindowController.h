#pragma once

#include "platform/Platform.h"
#include "platform/cocoa/CocoaWindow.h"

#import <AppKit/NSWindowController.h>

namespace vistrel::cocoa {

/// Stands for the controller of one of the bundle's windows, which lives as long as this, or for
/// nothing while that is nil.
class CocoaWindowController final : public WindowController {
  public:
    CocoaWindowController() = default;
    CocoaWindowController(const CocoaWindowController&) = delete;
    CocoaWindowController& operator=(const CocoaWindowController&) = delete;
    CocoaWindowController(CocoaWindowController&&) = delete;
    CocoaWindowController& operator=(CocoaWindowController&&) = delete;

    ~CocoaWindowController() { [controller_ release]; }

    /// Takes over the caller's reference to `controller`, once. `sender` is who asks for the window
    /// to be shown.
    void bind(NSWindowController* controller, id sender) {
        controller_ = controller;
        sender_ = sender;
    }

    Window& window() override { return window_.bind([controller_ window]); }

    void showWindow() override { [controller_ showWindow:sender_]; }

  private:
    NSWindowController* controller_ = nil;
    id sender_ = nil;
    CocoaWindow window_;
};

} // namespace vistrel::cocoa
