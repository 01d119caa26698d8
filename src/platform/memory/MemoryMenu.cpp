#include "platform/memory/MemoryMenu.h"

#include "platform/memory/Nothing.h"

#include <algorithm>

namespace vistrel::memory {

MemoryMenuItem::MemoryMenuItem(std::string itemTitle, std::string itemAction)
    : title(std::move(itemTitle)), action(std::move(itemAction)) {}

MemoryMenuItem::~MemoryMenuItem() = default;

Menu& MemoryMenuItem::submenu() {
    if (submenu_)
        return *submenu_;
    return noMenu;
}

MemoryMenu& MemoryMenuItem::setSubmenu(std::unique_ptr<MemoryMenu> menu) {
    submenu_ = std::move(menu);
    return *submenu_;
}

MenuItem& MemoryMenu::itemAtIndex(std::int32_t index) {
    if (index < 0 || index >= itemCount())
        return noMenuItem;
    return *items_[static_cast<std::size_t>(index)];
}

MenuItem& MemoryMenu::itemWithTitle(std::string_view title) {
    const auto found =
        std::ranges::find_if(items_, [title](const auto& item) { return item->title == title; });
    if (found == items_.end())
        return noMenuItem;
    return **found;
}

std::int32_t MemoryMenu::indexOfZoomItem() const {
    const auto found = std::ranges::find_if(items_, [](const auto& item) {
        return item->action == "performZoom:" && !item->targetsController;
    });
    return found == items_.end() ? -1 : static_cast<std::int32_t>(found - items_.begin());
}

void MemoryMenu::insertItem(const MenuItemDescription& item, std::int32_t index) {
    log_.record("insertItem \"", item.title, "\" at ", index);
    if (index < 0 || index > itemCount())
        return;
    items_.insert(items_.begin() + index, make(item));
}

MemoryMenuItem& MemoryMenu::add(std::string title, std::string action) {
    items_.push_back(std::make_unique<MemoryMenuItem>(std::move(title), std::move(action)));
    items_.back()->isOfSeparatorClass_ = !separatorsHaveOwnClass_;
    return *items_.back();
}

MemoryMenuItem& MemoryMenu::addSeparator() {
    auto& item = add({});
    markSeparator(item);
    return item;
}

MemoryMenu& MemoryMenu::addSubmenu(std::string title, std::string name) {
    return add(std::move(title))
        .setSubmenu(std::make_unique<MemoryMenu>(log_, std::move(name), separatorsHaveOwnClass_));
}

std::unique_ptr<MemoryMenuItem> MemoryMenu::make(const MenuItemDescription& description) {
    auto item = std::make_unique<MemoryMenuItem>(description.title, std::string());
    item->isOfSeparatorClass_ = !separatorsHaveOwnClass_;
    if (description.title.empty())
        markSeparator(*item);
    if (description.command) {
        item->action = actionName(*description.command);
        item->targetsController = true;
    }
    if (description.shortcut) {
        item->keyEquivalent = description.shortcut->key;
        item->keyEquivalentModifierMask = description.shortcut->mask;
    }
    if (!description.submenu.empty()) {
        auto& menu = item->setSubmenu(
            std::make_unique<MemoryMenu>(log_, std::string(), separatorsHaveOwnClass_));
        for (const auto& below : description.submenu)
            menu.items_.push_back(menu.make(below));
    }
    return item;
}

void MemoryMenu::markSeparator(MemoryMenuItem& item) const {
    item.isSeparator = true;
    item.isOfSeparatorClass_ = true;
}

} // namespace vistrel::memory
