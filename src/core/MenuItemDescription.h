#pragma once

#include "core/Command.h"
#include "core/Shortcut.h"

#include <optional>
#include <string>
#include <vector>

namespace vistrel {

/// Everything that a platform needs to make one menu item.
///
/// Without a title the item is a separator. With a command it sends that action to the controller,
/// which is its target and its represented object; without one it is the parent of `submenu` and
/// has neither action nor target. An item without a shortcut keeps the empty key equivalent and the
/// modifier mask of a fresh item.
struct MenuItemDescription {
    std::string title;
    std::optional<Command> command;
    std::optional<Shortcut> shortcut;
    std::vector<MenuItemDescription> submenu;

    friend bool operator==(const MenuItemDescription&, const MenuItemDescription&) = default;
};

} // namespace vistrel
