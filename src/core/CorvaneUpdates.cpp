#include "core/Corvane.h"

#include "core/Pages.h"
#include "platform/Platform.h"

namespace vistrel {

namespace {

constexpr std::string_view currentVersion = "1.1.2";

} // namespace

/// The first download only tells whether the server can be reached. What counts is the second.
void Corvane::updates() {
    auto& web = platform_.web();
    const auto address = versionFile(platform_.resources());
    web.removeAllCachedResponses();
    if (!web.textAtURL(address)) {
        tell("Error!", "Unable to check for updates. Please check your internet connection and try "
                       "again later.");
        return;
    }
    if (web.textAtURL(address) == currentVersion) {
        tell("You're up to date!",
             "Your copy of Quorvix's Vistrel is currently the latest version available.");
    } else {
        offerDownload();
    }
}

void Corvane::offerDownload() {
    const bool accepted = application().runAlert(
        {.title = application().localizedString("Update available"),
         .message = application().localizedString("Do you want to download it now?"),
         .defaultButton = "Download",
         .alternateButton = "Cancel"});
    if (accepted)
        openWebsite();
}

void Corvane::openWebsite() {
    platform_.workspace().openURL(releaseNotesPage(platform_.resources()));
}

void Corvane::quorvix() {
    platform_.workspace().openURL(applicationsPage(platform_.resources()));
}

} // namespace vistrel
