#pragma once

#include "platform/Platform.h"
#include "platform/memory/CallLog.h"
#include "platform/memory/MemoryDesktop.h"
#include "platform/memory/MemoryFileManager.h"
#include "platform/memory/MemoryMenu.h"
#include "platform/memory/MemoryResources.h"
#include "platform/memory/MemoryUserDefaults.h"
#include "platform/memory/MemoryWeb.h"
#include "platform/memory/MemoryWindow.h"
#include "platform/memory/MemoryWorkspace.h"

#include <functional>
#include <map>
#include <memory>
#include <vector>

namespace vistrel::memory {

/// A host process that exists in memory only: a stand-in for tests, fuzzers and benchmarks, a
/// skeleton for ports, and the measure of what the core costs by itself. It has no menu and no
/// window until it is given them. Several hosts may share one desktop.
class MemoryHost final : public Platform, public Application {
  public:
    explicit MemoryHost(MemoryDesktop& desktop, bool separatorsHaveOwnClass = true);

    Application& application() override { return *this; }

    MemoryUserDefaults& userDefaults() override { return userDefaults_; }

    FileManager& fileManager() override { return fileManager_; }

    MemoryWorkspace& workspace() override { return workspace_; }

    MemoryWeb& web() override { return web_; }

    MemoryResources& resources() override { return resources_; }

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override {
        return identifier;
    }

    [[nodiscard]] std::string bundlePath() const override { return path; }

    [[nodiscard]] std::string localizedString(std::string_view textKey) const override;
    Menu& mainMenu() override;
    Window& keyWindow() override;
    Window& mainWindow() override;
    [[nodiscard]] std::int32_t screenCount() const override;
    void setSystemUIMode(SystemUIMode mode) override;
    [[nodiscard]] std::int32_t windowLevelForKey(std::int32_t levelKey) const override;
    void showSearchWindow(std::string_view text, std::uint32_t options) override;
    void performAfterDelay(double seconds, std::function<void()> call) override;
    bool runAlert(const Alert& alert) override;
    void terminate() override;
    void log(std::string_view line) override;

    /// Gives the host an empty main menu.
    MemoryMenu& addMainMenu();

    /// Gives the host a window; it becomes neither key nor main by that.
    MemoryWindow& addWindow(std::string name, const Rect& frame);

    /// The levels that windowLevelForKey() answers. They differ from AppKit's on purpose: nothing
    /// may take a key for a level.
    static constexpr std::int32_t normalLevel = 100;
    static constexpr std::int32_t floatingLevel = 103;

    mutable CallLog calls;
    std::optional<std::string> identifier;
    std::string path = "/Applications/Host.app";
    /// The host's string table.
    std::map<std::string, std::string, std::less<>> strings;
    /// The alerts that were shown, and how the user answers them: with the default button or not.
    std::vector<Alert> alerts;
    bool acceptsAlerts = true;
    /// Called while an alert is shown.
    std::function<void()> duringAlert;
    MemoryWindow* key = nullptr;
    MemoryWindow* main = nullptr;
    SystemUIMode systemUIMode;
    /// The lines written to the log.
    std::vector<std::string> logLines;

  private:
    MemoryDesktop& desktop_;
    bool separatorsHaveOwnClass_;
    MemoryUserDefaults userDefaults_{calls};
    MemoryFileManager fileManager_{desktop_, calls};
    MemoryWorkspace workspace_{calls};
    MemoryWeb web_{calls};
    MemoryResources resources_{*this, calls, desktop_};
    std::unique_ptr<MemoryMenu> mainMenu_;
    std::vector<std::unique_ptr<MemoryWindow>> windows_;
};

} // namespace vistrel::memory
