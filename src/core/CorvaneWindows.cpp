#include "core/Corvane.h"

#include "platform/Platform.h"

namespace vistrel {

/// Tells the user something, in the host's words where it has them.
void Corvane::tell(std::string_view title, std::string_view message) {
    application().runAlert({.title = application().localizedString(title),
                            .message = application().localizedString(message),
                            .defaultButton = "OK"});
}

void Corvane::preferences() {
    if (preferencesController == nullptr) {
        preferencesController = platform_.resources().makePreferencesController();
        if (preferencesController != nullptr)
            preferencesController->window().center();
    }
    if (preferencesController != nullptr)
        preferencesController->showWindow();
}

void Corvane::about() {
    if (aboutNIBController == nullptr)
        aboutNIBController = platform_.resources().makeAboutController();
    if (aboutNIBController == nullptr)
        return;
    aboutNIBController->window().center();
    aboutNIBController->showWindow();
}

} // namespace vistrel
