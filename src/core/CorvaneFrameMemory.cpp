#include "core/Corvane.h"

#include "platform/Platform.h"

namespace vistrel {

namespace {

std::optional<std::string> savedText(const UserDefaults& defaults, std::string_view key) {
    const auto value = defaults.objectForKey(key);
    const auto* text = value ? std::get_if<std::string>(&*value) : nullptr;
    return text != nullptr ? std::optional(*text) : std::nullopt;
}

} // namespace

std::string Corvane::savedFrameKey() const {
    return "vtr_savedWindowRect" + screensString;
}

void Corvane::saveWind() {
    const auto frame = application().keyWindow().frame();
    countScreens();
    const auto message = screensString.empty()
                             ? std::string("Current window frame successfully saved.")
                             : "Current window frame successfully saved for setup with " +
                                   screensString + " display(s).";
    platform_.userDefaults().setObject(textFromRect(frame), savedFrameKey());
    application().runAlert({.title = application().localizedString("Success!"),
                            .message = message,
                            .defaultButton = "OK"});
}

void Corvane::restoreWind() {
    if (!restoreSavedFrame())
        tell("Error!", "You've yet not saved a window frame for this application.");
    endLayouts();
}

void Corvane::startRestore() {
    restoreSavedFrame();
}

/// Answers whether a frame is saved. The frame is read afresh when it is applied.
bool Corvane::restoreSavedFrame() {
    countScreens();
    const auto key = savedFrameKey();
    if (!savedText(platform_.userDefaults(), key))
        return false;
    const auto text = savedText(platform_.userDefaults(), key).value_or("");
    application().keyWindow().setFrameAnimated(rectFromText(text));
    return true;
}

} // namespace vistrel
