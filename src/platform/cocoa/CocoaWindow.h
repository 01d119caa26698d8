#pragma once

#include "platform/Platform.h"

#import <Foundation/NSObjCRuntime.h>

@class NSWindow;

namespace vistrel::cocoa {

/// The screen of the window it was last bound to, or nothing while that is nil.
class CocoaScreen final : public Screen {
  public:
    Screen& bind(NSWindow* window);

    [[nodiscard]] Rect frame() const override;

  private:
    NSWindow* window_ = nil;
};

/// Stands for the window it was last bound to, or for nothing while that is nil. Keeps no
/// reference: the window is the host's.
class CocoaWindow final : public Window {
  public:
    Window& bind(NSWindow* window);

    [[nodiscard]] Rect frame() const override;
    Screen& screen() override;
    void setFrameAnimated(const Rect& frame) override;
    [[nodiscard]] Rect frameRectForContentRect(const Rect& content) const override;
    void center() override;
    void setLevel(std::int64_t level) override;
    void setCollectionBehavior(std::uint64_t behavior) override;
    void makeKeyAndOrderFront() override;

  private:
    NSWindow* window_ = nil;
    CocoaScreen screen_;
};

} // namespace vistrel::cocoa
