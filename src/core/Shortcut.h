#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vistrel {

class UserDefaults;

/// Device-independent modifier flags (NSEventModifierFlags, NSEvent.h), combined by bitwise or.
using ModifierMask = std::uint32_t;

inline constexpr ModifierMask shiftMask = 0x20000;
inline constexpr ModifierMask controlMask = 0x40000;
inline constexpr ModifierMask optionMask = 0x80000;
inline constexpr ModifierMask commandMask = 0x100000;

/// The line-feed character: the key equivalent of every item that answers to Return.
inline constexpr std::string_view returnKey = "\n";

/// A menu item's key equivalent. An empty key is no shortcut.
struct Shortcut {
    std::string key;
    ModifierMask mask = 0;

    friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

/// The host defaults under which a user stores a shortcut of their own for one item.
struct UserShortcut {
    std::string_view keyTextKey;
    std::string_view toggleIndexKey;
    /// The mask of the built-in shortcut, whose key is always returnKey.
    ModifierMask defaultMask;
};

inline constexpr UserShortcut restoreShortcut{
    .keyTextKey = "restoreString",
    .toggleIndexKey = "restoreToggleIndex",
    .defaultMask = commandMask | optionMask | controlMask,
};
inline constexpr UserShortcut centerShortcut{
    .keyTextKey = "centerString",
    .toggleIndexKey = "centerToggleIndex",
    .defaultMask = optionMask,
};
inline constexpr UserShortcut fullscreenShortcut{
    .keyTextKey = "fullscreenString",
    .toggleIndexKey = "fullscreenToggleIndex",
    .defaultMask = commandMask,
};
inline constexpr UserShortcut menuShortcut{
    .keyTextKey = "menuString",
    .toggleIndexKey = "menuToggleIndex",
    .defaultMask = controlMask,
};

/// The modifier that a toggle index stands for: 0 Command, 1 Control, 2 Option, any other Command.
ModifierMask maskForToggleIndex(std::int64_t index);

/// The shortcut of an item with a user-defined scheme, as the host defaults have it: the built-in
/// one while "ownShortCuts" is off, else the user's. A user who stored no key, or one that is not a
/// text, gets an empty key; the mask follows the toggle index all the same.
Shortcut resolve(const UserShortcut& shortcut, const UserDefaults& defaults);

} // namespace vistrel
