#include "core/Corvane.h"

#include "core/MenuBlock.h"
#include "platform/Platform.h"

namespace vistrel {

Menu& windowMenu(Platform& platform) {
    auto& mainMenu = platform.application().mainMenu();
    for (std::int32_t index = 0;; ++index) {
        auto& submenu = mainMenu.itemAtIndex(index).submenu();
        if (!submenu.exists() || submenu.menuName() == "NSWindowsMenu")
            return submenu;
    }
}

MenuItem& zoomMenuItem(Platform& platform) {
    return windowMenu(platform).itemWithTitle("Zoom");
}

void setMark(Menu& menu, std::int32_t offset, bool on) {
    menu.itemAtIndex(menu.indexOfZoomItem() + offset).setState(on);
}

Application& Corvane::application() const {
    return platform_.application();
}

void Corvane::insertBlock() {
    auto position = offset::firstEntry;
    for (const auto& entry : blockEntries)
        insertEntry(entry, position++);

    if (platform_.userDefaults().boolForKey("spotlightBOOL")) {
        insertEntry(spotlightEntry(platform_.userDefaults()), offset::spotlight);
        insertClosingSeparator(offset::closingSeparatorAfterSpotlight);
    } else {
        insertClosingSeparator(offset::closingSeparator);
    }
}

void Corvane::insertEntry(const MenuEntry& entry, std::int32_t offset) {
    auto& menu = windowMenu(platform_);
    menu.insertItem(describe(entry, platform_.userDefaults()), menu.indexOfZoomItem() + offset);
}

/// A host whose items go on with a separator needs no second one. What tells is the class of the
/// item, so where separators have no class of their own there is never one to insert.
void Corvane::insertClosingSeparator(std::int32_t offset) {
    auto& menu = windowMenu(platform_);
    const auto index = menu.indexOfZoomItem() + offset;
    if (!menu.itemAtIndex(index).isOfSeparatorClass())
        menu.insertItem({}, index);
}

} // namespace vistrel
