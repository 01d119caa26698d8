#include "ContractHost.h"

#include "platform/memory/MemoryHost.h"

#include <algorithm>

namespace vistrel {

namespace {

void fill(memory::MemoryMenu& menu, const std::vector<ContractItem>& items) {
    for (const auto& item : items) {
        if (item.isSeparator) {
            menu.addSeparator();
        } else if (item.submenu.empty() && !item.isWindowMenu) {
            menu.add(item.title, item.action).targetsController = item.hasTarget;
        } else {
            fill(menu.addSubmenu(item.title, item.isWindowMenu ? "NSWindowsMenu" : ""),
                 item.submenu);
        }
    }
}

std::vector<ContractItem> look(const memory::MemoryMenu& menu) {
    std::vector<ContractItem> items;
    for (const auto& item : menu.items())
        items.push_back({.title = item->title,
                         .action = item->action,
                         .hasTarget = item->targetsController,
                         .isSeparator = item->isSeparator,
                         .key = item->keyEquivalent,
                         .mask = item->keyEquivalentModifierMask,
                         .isOn = item->state,
                         .submenu = item->memorySubmenu() != nullptr
                                        ? look(*item->memorySubmenu())
                                        : std::vector<ContractItem>{}});
    return items;
}

class MemoryContractHost final : public ContractHost {
  public:
    Platform& platform() override { return host_; }

    void setMainMenu(const std::vector<ContractItem>& items) override {
        mainMenu_ = &host_.addMainMenu();
        fill(*mainMenu_, items);
    }

    void removeMainMenu() override { mainMenu_ = nullptr; }

    std::vector<ContractItem> windowMenuItems() override {
        for (const auto& item : mainMenu_->items())
            if (item->memorySubmenu() != nullptr &&
                item->memorySubmenu()->menuName() == "NSWindowsMenu")
                return look(*item->memorySubmenu());
        return {};
    }

    void openWindow(const Rect& frame) override {
        host_.key = host_.main = &host_.addWindow("window", frame);
    }

    void closeWindow() override { host_.key = host_.main = nullptr; }

    void letPass(double seconds) override { desktop_.clock.advance(seconds); }

    void answerNextAlert(AlertAnswer answer) override {
        host_.acceptsAlerts = answer == AlertAnswer::byDefaultButton;
    }

    ContractAlert lastAlert() override {
        const auto& alert = host_.alerts.back();
        ContractAlert shown{alert.title, alert.message, {std::string(alert.defaultButton)}};
        if (!alert.alternateButton.empty())
            shown.buttons.emplace_back(alert.alternateButton);
        return shown;
    }

    /// It always does.
    void refuseToTerminate() override {}

    int terminationsAsked() override {
        return static_cast<int>(std::ranges::count(host_.calls.lines, "terminate"));
    }

    void storeDefault(std::string_view key, const PropertyList& value) override {
        host_.userDefaults().values.set(key, value);
    }

    void removeDefault(std::string_view key) override {
        Dictionary others;
        for (const auto& [name, value] : host_.userDefaults().values.entries())
            if (name != key)
                others.set(name, value);
        host_.userDefaults().values = others;
    }

    std::string folder() override { return desktop_.home; }

    std::string recordingProgram() override { return "/bin/record"; }

    std::vector<std::string> recordedArguments() override {
        return host_.workspace().launched.back().arguments;
    }

    void makeDamagedFile(const std::string& path) override { desktop_.files[path] = std::nullopt; }

  private:
    memory::MemoryDesktop desktop_;
    memory::MemoryHost host_{desktop_};
    memory::MemoryMenu* mainMenu_ = nullptr;
};

} // namespace

std::unique_ptr<ContractHost> ContractHost::make() {
    return std::make_unique<MemoryContractHost>();
}

} // namespace vistrel
