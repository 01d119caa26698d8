#pragma once

#include "platform/Platform.h"

#import <AppKit/AppKit.h>

namespace vistrel::cocoa {

/// Stands for the window it was last bound to, or for nothing while that is nil. Keeps no
/// reference: the window is the host's.
class CocoaWindow final : public Window {
  public:
    Window& bind(NSWindow* window);

    [[nodiscard]] Rect frame() const override;
    void setFrameAnimated(const Rect& frame) override;
    void setCollectionBehavior(std::uint64_t behavior) override;

  private:
    NSWindow* window_ = nil;
};

} // namespace vistrel::cocoa
