#pragma once

#include "platform/Platform.h"
#include "platform/cocoa/CocoaWindow.h"

@class NSTextField;

namespace vistrel::cocoa {

/// What an interface file has connected so far.
class CocoaOutlets final : public PreferencesOutlets {
  public:
    void connectWindow(NSWindow* window) { window_.bind(window); }

    void connectAppName(NSTextField* field) { appName_ = field; }

    Window& window() override { return window_; }

    void setAppName(std::string_view name) override;

  private:
    CocoaWindow window_;
    NSTextField* appName_ = nil;
};

} // namespace vistrel::cocoa
