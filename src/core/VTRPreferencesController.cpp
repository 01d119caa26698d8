#include "core/VTRPreferencesController.h"

#include "core/Pages.h"
#include "platform/Platform.h"

namespace vistrel {

/// The outlet is not connected yet, so this moves nothing.
void VTRPreferencesController::init() {
    outlets_.window().center();
}

void VTRPreferencesController::awakeFromNib() {
    outlets_.window().center();
    outlets_.window().makeKeyAndOrderFront();
    outlets_.setAppName(platform_.workspace().activeApplicationName());
    settings_.load(platform_.fileManager(), platform_.userDefaults());
}

void VTRPreferencesController::savePreferences() {
    settings_.save(platform_.fileManager(), platform_.userDefaults());
}

void VTRPreferencesController::openQuorvix() {
    platform_.workspace().openURL(homePage(platform_.resources()));
}

void VTRPreferencesController::openManual() {
    platform_.workspace().openURL(manual(platform_.resources()));
}

} // namespace vistrel
