#pragma once

#include "core/CorvaneClass.h"
#include "platform/memory/MemoryHost.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace vistrel {

/// A host in memory and the bundle's classes in it, as one process has them.
struct TestHost {
    explicit TestHost(memory::MemoryDesktop& desktop, bool separatorsHaveOwnClass = true)
        : host(desktop, separatorsHaveOwnClass) {}

    /// A main menu with File and Window, and in the Window menu: Minimize, Zoom, a separator, Bring
    /// All to Front.
    memory::MemoryMenu& addWindowMenuWithZoom() {
        auto& windows = addEmptyWindowMenu();
        windows.add("Minimize", "performMiniaturize:");
        windows.add("Zoom", "performZoom:");
        windows.addSeparator();
        windows.add("Bring All to Front", "arrangeInFront:");
        return windows;
    }

    /// A main menu with File and an empty Window menu.
    memory::MemoryMenu& addEmptyWindowMenu() {
        auto& mainMenu = host.addMainMenu();
        mainMenu.addSubmenu("File").add("New", "newDocument:");
        return mainMenu.addSubmenu("Window", "NSWindowsMenu");
    }

    /// A window that is key and main.
    memory::MemoryWindow& addFrontWindow(const Rect& frame = {
                                             .x = 10, .y = 20, .width = 300, .height = 200}) {
        auto& window = host.addWindow("window", frame);
        host.key = host.main = &window;
        return window;
    }

    void setDefault(std::string_view key, PropertyList value) {
        host.userDefaults().values.set(key, std::move(value));
    }

    /// The stored value with its type; a false boolean stands for nothing stored.
    [[nodiscard]] PropertyList storedDefault(std::string_view key) {
        const auto* value = host.userDefaults().values.find(key);
        return value != nullptr ? *value : PropertyList(Data{});
    }

    void load() { corvane.load(host); }

    [[nodiscard]] const CorvaneFields& fields() const { return corvane.m->fields(); }

    memory::MemoryHost host;
    CorvaneClass corvane;
};

/// A host with the usual menus on a desktop of its own.
class HostTest : public testing::Test {
  protected:
    void SetUp() override { windows = &it.addWindowMenuWithZoom(); }

    /// A global setting as the settings file has it. The other keys of the file are missing.
    void writeSettings(Dictionary settings) {
        desktop.folders.insert("/home/user/Library/Application Support/Vistrel");
        desktop.files[settingsPath] = PropertyList(std::move(settings));
    }

    const std::string settingsPath =
        "/home/user/Library/Application Support/Vistrel/Settings.plist";
    memory::MemoryDesktop desktop;
    TestHost it{desktop};
    memory::MemoryMenu* windows = nullptr;
};

/// The titles of the menu's items, "-" for separators.
inline std::vector<std::string> titles(const memory::MemoryMenu& menu) {
    std::vector<std::string> result;
    std::ranges::transform(menu.items(), std::back_inserter(result),
                           [](const auto& item) { return item->isSeparator ? "-" : item->title; });
    return result;
}

/// The indexes of the items that show a check mark.
inline std::vector<int> markedItems(const memory::MemoryMenu& menu) {
    std::vector<int> result;
    for (std::size_t index = 0; index < menu.items().size(); ++index)
        if (menu.items()[index]->state)
            result.push_back(static_cast<int>(index));
    return result;
}

} // namespace vistrel
