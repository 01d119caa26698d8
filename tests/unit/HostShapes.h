#pragma once

#include "LiteralModel.h"
#include "TestHost.h"

#include <array>
#include <functional>
#include <ostream>
#include <string_view>
#include <vector>

/// What the menus of a host may look like.
namespace vistrel {

using MainMenu = std::vector<literal::TopItem>;
using Items = std::vector<literal::Item>;

inline const literal::Item minimize{.title = "Minimize"};
inline const literal::Item zoom{.title = "Zoom", .zooms = true};
inline const literal::Item separator{.title = "", .isSeparator = true};
inline const literal::Item bringAllToFront{.title = "Bring All to Front"};

inline literal::TopItem fileMenu() {
    return {"File", literal::Menu{"", {{.title = "New"}}}};
}

inline MainMenu menusWithWindowMenu(Items items) {
    return {fileMenu(), {"Window", literal::Menu{"NSWindowsMenu", std::move(items)}}};
}

inline MainMenu usualMenus() {
    return menusWithWindowMenu({minimize, zoom, separator, bringAllToFront});
}

inline MainMenu itemRightAfterZoom() {
    return menusWithWindowMenu({zoom, bringAllToFront});
}

inline MainMenu zoomLast() {
    return menusWithWindowMenu({minimize, zoom});
}

inline MainMenu twoZoomItems() {
    return menusWithWindowMenu({{.title = "Zoom"}, minimize, zoom, zoom, bringAllToFront});
}

inline MainMenu noZoom() {
    return menusWithWindowMenu({minimize, separator, bringAllToFront});
}

inline MainMenu emptyWindowMenu() {
    return menusWithWindowMenu({});
}

inline MainMenu twoWindowMenus() {
    auto menus = usualMenus();
    menus.push_back(menus.back());
    return menus;
}

inline MainMenu windowMenuBehindPlainItem() {
    auto menus = usualMenus();
    menus.insert(menus.begin() + 1, {"About", std::nullopt});
    return menus;
}

inline MainMenu noWindowMenu() {
    return {fileMenu()};
}

inline MainMenu noMainMenu() {
    return {};
}

struct Shape {
    std::string_view name;
    /// The menus, each time the host builds them.
    std::function<MainMenu()> menus;
    bool separatorsHaveOwnClass = true;
    bool spotlight = false;

    friend std::ostream& operator<<(std::ostream& out, const Shape& shape) {
        return out << shape.name;
    }
};

inline const std::array shapes{
    Shape{"Usual", usualMenus},
    Shape{"UsualWithSpotlight", usualMenus, true, true},
    Shape{"SeparatorsWithoutClass", itemRightAfterZoom, false},
    Shape{"SeparatorsWithoutClassWithSpotlight", zoomLast, false, true},
    Shape{"ItemRightAfterZoom", itemRightAfterZoom, true, true},
    Shape{"TwoZoomItems", twoZoomItems},
    Shape{"NoZoom", noZoom},
    Shape{"EmptyWindowMenu", emptyWindowMenu, false},
    Shape{"TwoWindowMenus", twoWindowMenus},
    Shape{"WindowMenuBehindPlainItem", windowMenuBehindPlainItem},
    Shape{"NoWindowMenu", noWindowMenu},
    Shape{"NoMainMenu", noMainMenu},
};

inline void giveItem(memory::MemoryMenu& menu, const literal::Item& item) {
    if (item.isSeparator)
        menu.addSeparator();
    else
        menu.add(item.title, item.zooms ? "performZoom:" : "");
}

/// Gives the host these menus and answers them, one for each item of the main menu.
inline std::vector<memory::MemoryMenu*> giveMenus(memory::MemoryHost& host, const MainMenu& menus) {
    std::vector<memory::MemoryMenu*> result;
    if (menus.empty())
        return result;
    auto& mainMenu = host.addMainMenu();
    for (const auto& [title, submenu] : menus) {
        if (!submenu) {
            mainMenu.add(title);
            result.push_back(nullptr);
            continue;
        }
        auto& menu = mainMenu.addSubmenu(title, submenu->name);
        for (const auto& item : submenu->items)
            giveItem(menu, item);
        result.push_back(&menu);
    }
    return result;
}

} // namespace vistrel
