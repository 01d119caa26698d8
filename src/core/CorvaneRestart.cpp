#include "core/Corvane.h"

#include "platform/Platform.h"

namespace vistrel {

/// The message is the key of a text that no host has; it is shown as it is. The path is put between
/// the quotes unchanged, so one that holds a quote itself is not opened again.
void Corvane::restartFinder() {
    if (platform_.workspace().activeApplicationName() != "Finder")
        return;
    const auto message = application().localizedString("RestartIndex == 0 - Should restart");
    const auto title = application().localizedString("VTR!");
    application().runAlert({.title = title, .message = message, .defaultButton = "OK"});
    const auto command = "sleep 1 ; /usr/bin/open '" + application().bundlePath() + "'";
    platform_.workspace().launch("/bin/sh", {"-c", command});
    application().terminate();
}

} // namespace vistrel
