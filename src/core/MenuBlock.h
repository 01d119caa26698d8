#pragma once

#include "core/MenuItemDescription.h"
#include "core/Shortcut.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace vistrel {

class UserDefaults;

/// A built-in key equivalent.
struct FixedShortcut {
    std::string_view key;
    ModifierMask mask;
};

/// One row of the block that goes into the host's Window menu. A row without a title is a
/// separator.
struct MenuEntry {
    std::string_view title = {};
    std::optional<Command> command = {};
    std::optional<FixedShortcut> shortcut = {};
    /// Set for the items whose shortcut the user may choose.
    const UserShortcut* userShortcut = nullptr;
    std::span<const MenuEntry> submenu = {};
};

inline constexpr MenuEntry separatorEntry{};

inline constexpr std::array aboutEntries{
    MenuEntry{.title = "About", .command = Command::about},
    MenuEntry{.title = "Website", .command = Command::openWebsite},
    MenuEntry{.title = "Check for Updates…", .command = Command::updates},
    MenuEntry{.title = "More Nifty Apps From Quorvix", .command = Command::quorvix},
};

inline constexpr std::array settingsEntries{
    MenuEntry{.title = "Settings…",
              .command = Command::preferences,
              .shortcut = FixedShortcut{",", commandMask | optionMask}},
    MenuEntry{.title = "Save Default Window Frame",
              .command = Command::saveWind,
              .shortcut = FixedShortcut{"s", commandMask | optionMask | controlMask}},
    MenuEntry{.title = "Restore Default Window Frame",
              .command = Command::restoreWind,
              .userShortcut = &restoreShortcut},
};

inline constexpr std::array arrangeEntries{
    MenuEntry{
        .title = "Center Window", .command = Command::center, .userShortcut = &centerShortcut},
    MenuEntry{.title = "Center Average Window",
              .command = Command::centerAverage,
              .shortcut = FixedShortcut{returnKey, controlMask | optionMask}},
    separatorEntry,
    MenuEntry{.title = "Toggle ½ Screen Left",
              .command = Command::left,
              .shortcut = FixedShortcut{"[", controlMask}},
    MenuEntry{.title = "Toggle ½ Screen Right",
              .command = Command::right,
              .shortcut = FixedShortcut{"]", controlMask}},
    separatorEntry,
    MenuEntry{.title = "Toggle ⅓ Screen Left", .command = Command::threeL},
    MenuEntry{.title = "Toggle ⅓ Screen Middle", .command = Command::threeM},
    MenuEntry{.title = "Toggle ⅓ Screen Right", .command = Command::threeR},
};

/// The block in the order in which it is inserted: the first row right below the host's Zoom item,
/// each following one a position further down. The commands find these items again by position, so
/// neither order nor number may change.
inline constexpr std::array blockEntries{
    separatorEntry,
    MenuEntry{.title = "Quorvix's Vistrel", .submenu = aboutEntries},
    MenuEntry{.title = "Settings", .submenu = settingsEntries},
    MenuEntry{.title = "Arrange", .submenu = arrangeEntries},
    MenuEntry{.title = "Toggle Fullscreen",
              .command = Command::doFullscreen,
              .userShortcut = &fullscreenShortcut},
    MenuEntry{.title = "Toggle Menu And Dock",
              .command = Command::setKUIMode,
              .userShortcut = &menuShortcut},
    MenuEntry{.title = "Toggle Floating Window",
              .command = Command::floating,
              .shortcut = FixedShortcut{returnKey, controlMask | shiftMask}},
    MenuEntry{.title = "Make OS X Lion Fullscreen Window",
              .command = Command::makeLionFullscreen,
              .shortcut = FixedShortcut{"f", commandMask | optionMask | controlMask}},
};

/// Positions counted from the Zoom item. The marks of the commands are one further down than the
/// items that they belong to, by design.
namespace offset {
inline constexpr std::int32_t firstEntry = 1;
inline constexpr std::int32_t spotlight = 8;
inline constexpr std::int32_t closingSeparator = 9;
inline constexpr std::int32_t closingSeparatorAfterSpotlight = 10;
/// Where the start-up shows that menu bar and Dock are hidden: "Toggle Menu And Dock".
inline constexpr std::int32_t startUpHidingMark = 6;
inline constexpr std::int32_t fullscreenMark = 6;
inline constexpr std::int32_t hidingMark = 7;
inline constexpr std::int32_t floatingMark = 8;
} // namespace offset

/// The optional "Show Spotlight Window" item. Its modifiers are Command when the host default
/// "spotlightBOOLIndex" is 0, else Command and Option.
MenuEntry spotlightEntry(const UserDefaults& defaults);

/// The item that `entry` stands for, with the shortcuts that the host defaults ask for.
MenuItemDescription describe(const MenuEntry& entry, const UserDefaults& defaults);

} // namespace vistrel
