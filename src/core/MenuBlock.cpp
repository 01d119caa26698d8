#include "core/MenuBlock.h"

#include "platform/Platform.h"

namespace vistrel {

MenuEntry spotlightEntry(const UserDefaults& defaults) {
    const bool commandOnly = defaults.integerForKey("spotlightBOOLIndex") == 0;
    return {
        .title = "Show Spotlight Window",
        .command = Command::spotlight,
        .shortcut = FixedShortcut{" ", commandOnly ? commandMask : commandMask | optionMask},
    };
}

MenuItemDescription describe(const MenuEntry& entry, const UserDefaults& defaults) {
    MenuItemDescription item{.title = std::string(entry.title), .command = entry.command};
    if (entry.userShortcut != nullptr)
        item.shortcut = resolve(*entry.userShortcut, defaults);
    else if (entry.shortcut)
        item.shortcut = Shortcut{std::string(entry.shortcut->key), entry.shortcut->mask};
    for (const auto& below : entry.submenu)
        item.submenu.push_back(describe(below, defaults));
    return item;
}

} // namespace vistrel
