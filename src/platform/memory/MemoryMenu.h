#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"

#include <memory>
#include <string>
#include <vector>

namespace vistrel::memory {

class MemoryMenu;

/// A menu item with all that a platform can be asked to give it.
class MemoryMenuItem final : public MenuItem {
  public:
    MemoryMenuItem(std::string itemTitle, std::string itemAction);
    ~MemoryMenuItem();
    MemoryMenuItem(const MemoryMenuItem&) = delete;
    MemoryMenuItem& operator=(const MemoryMenuItem&) = delete;
    MemoryMenuItem(MemoryMenuItem&&) = delete;
    MemoryMenuItem& operator=(MemoryMenuItem&&) = delete;

    Menu& submenu() override;

    [[nodiscard]] bool isOfSeparatorClass() const override { return isOfSeparatorClass_; }

    void setState(bool on) override { state = on; }

    /// Hangs `menu` below the item.
    MemoryMenu& setSubmenu(std::unique_ptr<MemoryMenu> menu);

    [[nodiscard]] MemoryMenu* memorySubmenu() const { return submenu_.get(); }

    std::string title;
    /// Name of the action method, empty for none.
    std::string action;
    /// Whether target and represented object are the controller; other items have neither.
    bool targetsController = false;
    bool isSeparator = false;
    std::string keyEquivalent;
    /// A fresh item has the Command mask, as on AppKit.
    ModifierMask keyEquivalentModifierMask = commandMask;
    bool state = false;

  private:
    friend class MemoryMenu;

    bool isOfSeparatorClass_ = false;
    std::unique_ptr<MemoryMenu> submenu_;
};

/// A menu. `separatorsHaveOwnClass` chooses between GNUstep's way (a class for separators) and
/// AppKit's (none, so that every item is of the class that a separator has).
class MemoryMenu final : public Menu {
  public:
    MemoryMenu(CallLog& log, std::string name, bool separatorsHaveOwnClass = true)
        : log_(log), name_(std::move(name)), separatorsHaveOwnClass_(separatorsHaveOwnClass) {}

    [[nodiscard]] bool exists() const override { return true; }

    [[nodiscard]] std::string menuName() const override { return name_; }

    [[nodiscard]] std::int32_t itemCount() const override {
        return static_cast<std::int32_t>(items_.size());
    }

    MenuItem& itemAtIndex(std::int32_t index) override;
    MenuItem& itemWithTitle(std::string_view title) override;
    [[nodiscard]] std::int32_t indexOfZoomItem() const override;
    void insertItem(const MenuItemDescription& item, std::int32_t index) override;

    /// Appends an item of the host's own.
    MemoryMenuItem& add(std::string title, std::string action = {});
    MemoryMenuItem& addSeparator();

    /// Appends an item with a menu below it and answers that menu. `name` is the platform's private
    /// name of the menu.
    MemoryMenu& addSubmenu(std::string title, std::string name = {});

    [[nodiscard]] const std::vector<std::unique_ptr<MemoryMenuItem>>& items() const {
        return items_;
    }

  private:
    std::unique_ptr<MemoryMenuItem> make(const MenuItemDescription& description);
    void markSeparator(MemoryMenuItem& item) const;

    CallLog& log_;
    std::string name_;
    bool separatorsHaveOwnClass_;
    std::vector<std::unique_ptr<MemoryMenuItem>> items_;
};

} // namespace vistrel::memory
