#pragma once

#include "platform/Platform.h"

#import <Foundation/NSObjCRuntime.h>

#include <memory>

@class NSMenu;
@class NSMenuItem;

namespace vistrel::cocoa {

class CocoaMenu;

/// Stands for the menu item it was last bound to, or for nothing while that is nil.
class CocoaMenuItem final : public MenuItem {
  public:
    explicit CocoaMenuItem(id controller) : controller_(controller) {}

    /// `item` is an NSMenuItem or nil.
    CocoaMenuItem& bind(id item);

    [[nodiscard]] NSMenuItem* item() const { return item_; }

    Menu& submenu() override;
    [[nodiscard]] bool isOfSeparatorClass() const override;
    void setState(bool on) override;

  private:
    id controller_;
    NSMenuItem* item_ = nil;
    std::unique_ptr<CocoaMenu> submenu_;
};

/// Stands for the menu it was last bound to, or for nothing while that is nil. Items that are made
/// here send their actions to `controller`. Wrappers for what is below are made once and bound anew
/// at each question, so that walking through the host's menus allocates nothing.
class CocoaMenu final : public Menu {
  public:
    explicit CocoaMenu(id controller) : controller_(controller), item_(controller) {}

    CocoaMenu(const CocoaMenu&) = delete;
    CocoaMenu& operator=(const CocoaMenu&) = delete;
    CocoaMenu(CocoaMenu&&) = delete;
    CocoaMenu& operator=(CocoaMenu&&) = delete;
    ~CocoaMenu() = default;

    /// Keeps the menu until the end of the host's event: a command may ask the host's windows to
    /// move before it comes back to the menu, and the host may exchange its menus meanwhile. Not
    /// for longer: on GNUstep a menu is on screen for as long as it exists.
    CocoaMenu& bind(NSMenu* menu);

    [[nodiscard]] NSMenu* menu() const { return menu_; }

    [[nodiscard]] bool exists() const override { return menu_ != nil; }

    [[nodiscard]] std::string menuName() const override;
    [[nodiscard]] std::int32_t itemCount() const override;
    MenuItem& itemAtIndex(std::int32_t index) override;
    MenuItem& itemWithTitle(std::string_view title) override;
    [[nodiscard]] std::int32_t indexOfZoomItem() const override;
    void insertItem(const MenuItemDescription& item, std::int32_t index) override;

  private:
    id controller_;
    NSMenu* menu_ = nil;
    CocoaMenuItem item_;
};

} // namespace vistrel::cocoa
