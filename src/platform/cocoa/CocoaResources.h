#pragma once

#include "platform/Platform.h"
#include "platform/cocoa/CocoaWindowController.h"

namespace vistrel::cocoa {

/// What lies in the bundle beside its program.
class CocoaResources final : public BundleResources {
  public:
    /// `controller` is the Objective-C object that asks for the windows. Both must outlive the
    /// resources.
    CocoaResources(Platform& platform, id controller)
        : platform_(platform), controller_(controller) {}

    [[nodiscard]] std::string infoText(std::string_view key) const override;
    WindowController* makePreferencesController() override;
    WindowController* makeAboutController() override;

  private:
    WindowController* kept(CocoaWindowController& place, NSWindowController* controller);

    Platform& platform_;
    id controller_;
    CocoaWindowController preferences_;
    CocoaWindowController about_;
};

} // namespace vistrel::cocoa
