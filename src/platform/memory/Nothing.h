#pragma once

#include "platform/Platform.h"

namespace vistrel::memory {

class NoScreen final : public Screen {
  public:
    [[nodiscard]] Rect frame() const override { return {}; }
};

class NoWindow final : public Window {
  public:
    [[nodiscard]] Rect frame() const override { return {}; }

    Screen& screen() override;

    void setFrameAnimated(const Rect&) override {}

    [[nodiscard]] Rect frameRectForContentRect(const Rect&) const override { return {}; }

    void center() override {}

    void setLevel(std::int64_t) override {}

    void setCollectionBehavior(std::uint64_t) override {}

    void makeKeyAndOrderFront() override {}
};

class NoMenuItem final : public MenuItem {
  public:
    Menu& submenu() override;

    [[nodiscard]] bool isOfSeparatorClass() const override { return false; }

    void setState(bool) override {}
};

class NoMenu final : public Menu {
  public:
    [[nodiscard]] bool exists() const override { return false; }

    [[nodiscard]] std::string menuName() const override { return {}; }

    [[nodiscard]] std::int32_t itemCount() const override { return 0; }

    MenuItem& itemAtIndex(std::int32_t) override;
    MenuItem& itemWithTitle(std::string_view) override;

    [[nodiscard]] std::int32_t indexOfZoomItem() const override { return 0; }

    void insertItem(const MenuItemDescription&, std::int32_t) override {}
};

/// The objects that stand for no screen, no window, no menu item and no menu. They hold no state.
inline constinit NoScreen noScreen;
inline constinit NoWindow noWindow;
inline constinit NoMenuItem noMenuItem;
inline constinit NoMenu noMenu;

inline Screen& NoWindow::screen() {
    return noScreen;
}

inline Menu& NoMenuItem::submenu() {
    return noMenu;
}

inline MenuItem& NoMenu::itemAtIndex(std::int32_t) {
    return noMenuItem;
}

inline MenuItem& NoMenu::itemWithTitle(std::string_view) {
    return noMenuItem;
}

} // namespace vistrel::memory
