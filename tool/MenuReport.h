#pragma once

#include "core/Shortcut.h"

#include <string>
#include <vector>

/// What the menus of an application say about Vistrel in it.
namespace vistrel::tool {

/// One item of a menu.
struct MenuRow {
    std::string title;
    bool isSeparator = false;
    Shortcut shortcut;
    /// Whether it sends one of Vistrel's commands.
    bool isOurs = false;
    std::vector<MenuRow> items = {};
};

/// Two items that answer to the same keys, one of them Vistrel's.
struct Collision {
    /// The titles of the items from the main menu down, such as "Window > Arrange > Center Window".
    std::string ours;
    std::string theirs;
    /// The keys, such as "Command-Return".
    std::string keys;
    /// Whether it is the host's item that gets them: the platform takes the first of all that
    /// match.
    bool theirsWins = false;
};

/// The collisions in the main menu, in the order of Vistrel's items.
std::vector<Collision> collisions(const std::vector<MenuRow>& mainMenu);

/// A shortcut as it is written in manuals. Empty for none.
std::string shortcutText(const Shortcut& shortcut);

/// The positions of the items of a menu that are Vistrel's, or lead to items that are.
std::vector<std::size_t> ourPositions(const std::vector<MenuRow>& menu);

} // namespace vistrel::tool
