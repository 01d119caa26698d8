#include "tool/SettingsTable.h"

#include "core/Settings.h"
#include "core/Shortcut.h"

#include <algorithm>
#include <array>

namespace vistrel::tool {

namespace {

using Value = const PropertyList*;

std::string text(Value value) {
    const auto* held = value != nullptr ? std::get_if<std::string>(value) : nullptr;
    return held != nullptr ? *held : "";
}

constexpr std::string_view shown = "Menu bar and Dock are shown at the start.";
constexpr std::string_view hidden = "Menu bar and Dock are hidden at the start.";
constexpr std::string_view left = "Menu bar and Dock are left as they are.";
constexpr std::string_view nothing = "Nothing: there is no such choice.";

std::string startMode(std::int64_t mode) {
    constexpr std::array modes{shown, hidden, left};
    return std::string(mode >= 0 && mode < 3 ? modes.at(static_cast<std::size_t>(mode)) : nothing);
}

std::string globalMode(Value value) {
    return intValue(value) == 0 ? "Each application's own kuiMode decides on menu bar and Dock."
                                : startMode(std::int64_t{intValue(value)} - 1);
}

std::string ownMode(Value value) {
    return startMode(integerValue(value));
}

std::string spotlight(Value value) {
    return boolValue(value) ? "The menu has \"Show Spotlight Window\"."
                            : "The menu has no \"Show Spotlight Window\".";
}

std::string spotlightShortcut(Value value) {
    return std::string("The shortcut of \"Show Spotlight Window\" is ") +
           (integerValue(value) == 0 ? "Command-Space." : "Command-Option-Space.");
}

std::string fullScreen(Value value) {
    return boolValue(value) ? "The main window takes part in the system's own full-screen mode."
                            : "The main window is left as the application made it.";
}

std::string displaySetup(Value value) {
    return boolValue(value) ? "One window frame is kept for each number of screens."
                            : "One window frame is kept, whatever the number of screens.";
}

std::string inert(Value /*value*/) {
    return "Nothing: it is kept, and without effect.";
}

std::string windowMode(Value value) {
    return integerValue(value) == 1 ? "The window is put where its saved frame is, at the start."
                                    : "The window stays where the application puts it.";
}

std::string ownShortcuts(Value value) {
    return boolValue(value) ? "The four shortcuts below are used."
                            : "The built-in shortcuts are used.";
}

template <const UserShortcut& shortcut> constexpr std::string_view commandOf() {
    if (&shortcut == &restoreShortcut)
        return "Restore Default Window Frame";
    if (&shortcut == &centerShortcut)
        return "Center Window";
    if (&shortcut == &fullscreenShortcut)
        return "Toggle Fullscreen";
    return "Toggle Menu And Dock";
}

template <const UserShortcut& shortcut> std::string shortcutKey(Value value) {
    const auto command = std::string(commandOf<shortcut>());
    return text(value).empty() ? "\"" + command + "\" has no shortcut."
                               : "The key of the shortcut of \"" + command + "\".";
}

template <const UserShortcut& shortcut> std::string shortcutModifier(Value value) {
    const auto mask = maskForToggleIndex(integerValue(value));
    return "The modifier of the shortcut of \"" + std::string(commandOf<shortcut>()) + "\": " +
           (mask == controlMask  ? "Control."
            : mask == optionMask ? "Option."
                                 : "Command.");
}

std::string savedFrame(Value /*value*/) {
    return "The window frame that was saved: x, y, width and height.";
}

std::string enabled(Value value) {
    return boolValue(value) ? "Vistrel is loaded." : "Vistrel is not loaded.";
}

std::string searchTool(Value value) {
    return text(value).empty() ? "\"Show Spotlight Window\" looks for a tool itself."
                               : "The program that \"Show Spotlight Window\" starts.";
}

template <const UserShortcut& shortcut> constexpr KnownSetting keyOf() {
    return {shortcut.keyTextKey, SettingPlace::defaults, ValueKind::text, shortcutKey<shortcut>};
}

template <const UserShortcut& shortcut> constexpr KnownSetting modifierOf() {
    return {shortcut.toggleIndexKey, SettingPlace::defaults, ValueKind::integer,
            shortcutModifier<shortcut>};
}

using Meaning = std::string (*)(Value);

/// In the order of globalSettings.
constexpr std::array<Meaning, globalSettings.size()> meanings{
    globalMode, spotlightShortcut, spotlight, inert, fullScreen, displaySetup, inert};

constexpr std::array ownSettings{
    KnownSetting{"kuiMode", SettingPlace::defaults, ValueKind::integer, ownMode},
    KnownSetting{"windowMode", SettingPlace::defaults, ValueKind::integer, windowMode},
    KnownSetting{"vtr_savedWindowRect", SettingPlace::defaults, ValueKind::text, savedFrame, true},
    KnownSetting{"ownShortCuts", SettingPlace::defaults, ValueKind::boolean, ownShortcuts},
    keyOf<restoreShortcut>(),
    modifierOf<restoreShortcut>(),
    keyOf<centerShortcut>(),
    modifierOf<centerShortcut>(),
    keyOf<fullscreenShortcut>(),
    modifierOf<fullscreenShortcut>(),
    keyOf<menuShortcut>(),
    modifierOf<menuShortcut>(),
    KnownSetting{"VTREnabled", SettingPlace::defaults, ValueKind::boolean, enabled},
    KnownSetting{"VTRSearchTool", SettingPlace::defaults, ValueKind::text, searchTool},
};

constexpr auto allSettings = [] {
    std::array<KnownSetting, globalSettings.size() + ownSettings.size()> all{};
    for (std::size_t index = 0; index < globalSettings.size(); ++index) {
        all.at(index) = {globalSettings.at(index).key, SettingPlace::file,
                         globalSettings.at(index).kind == SettingKind::integer ? ValueKind::integer
                                                                               : ValueKind::boolean,
                         meanings.at(index)};
    }
    std::ranges::copy(ownSettings, all.begin() + globalSettings.size());
    return all;
}();

} // namespace

std::span<const KnownSetting> knownSettings() {
    return allSettings;
}

const KnownSetting* findSetting(std::string_view key) {
    for (const auto& setting : allSettings) {
        if (key == setting.key)
            return &setting;
        const bool hasNumber = key.starts_with(setting.key) &&
                               std::ranges::all_of(key.substr(setting.key.size()),
                                                   [](char c) { return c >= '0' && c <= '9'; });
        if (setting.isFamily && hasNumber)
            return &setting;
    }
    return nullptr;
}

} // namespace vistrel::tool
