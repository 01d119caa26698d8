#include "core/VTRAboutNIBController.h"

#include "core/Pages.h"
#include "platform/Platform.h"

namespace vistrel {

/// The outlet is not connected yet, so this moves nothing.
void VTRAboutNIBController::init() {
    outlets_.window().center();
}

void VTRAboutNIBController::awakeFromNib() {
    outlets_.window().center();
}

void VTRAboutNIBController::openManuals() {
    platform_.workspace().openURL(manualsPage(platform_.resources()));
}

void VTRAboutNIBController::openQuorvix() {
    platform_.workspace().openURL(homePage(platform_.resources()));
}

void VTRAboutNIBController::openSupport() {
    platform_.workspace().openURL(supportPage(platform_.resources()));
}

void VTRAboutNIBController::openACK() {
    platform_.workspace().openURL(acknowledgementsPage(platform_.resources()));
}

} // namespace vistrel
