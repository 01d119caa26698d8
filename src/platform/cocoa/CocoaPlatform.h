#pragma once

#include "platform/Platform.h"
#include "platform/cocoa/CocoaFileManager.h"
#include "platform/cocoa/CocoaMenu.h"
#include "platform/cocoa/CocoaResources.h"
#include "platform/cocoa/CocoaUserDefaults.h"
#include "platform/cocoa/CocoaWeb.h"
#include "platform/cocoa/CocoaWindow.h"
#include "platform/cocoa/CocoaWorkspace.h"

namespace vistrel::cocoa {

/// The running Cocoa application.
class CocoaPlatform final : public Platform, public Application {
  public:
    /// `controller` is the Objective-C object that menu items send their actions to. It must
    /// outlive the platform.
    explicit CocoaPlatform(id controller) : controller_(controller), mainMenu_(controller) {}

    Application& application() override { return *this; }

    UserDefaults& userDefaults() override { return userDefaults_; }

    FileManager& fileManager() override { return fileManager_; }

    Workspace& workspace() override { return workspace_; }

    Web& web() override { return web_; }

    BundleResources& resources() override { return resources_; }

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override;
    [[nodiscard]] std::string bundlePath() const override;
    [[nodiscard]] std::string localizedString(std::string_view key) const override;
    Menu& mainMenu() override;
    Window& keyWindow() override;
    Window& mainWindow() override;
    [[nodiscard]] std::int32_t screenCount() const override;
    void setSystemUIMode(SystemUIMode mode) override;
    [[nodiscard]] std::int32_t windowLevelForKey(std::int32_t key) const override;
    void showSearchWindow(std::string_view text, std::uint32_t options) override;
    void performAfterDelay(double seconds, std::function<void()> call) override;
    bool runAlert(const Alert& alert) override;
    void terminate() override;
    void log(std::string_view line) override;

  private:
    id controller_;
    CocoaUserDefaults userDefaults_;
    CocoaFileManager fileManager_;
    CocoaWorkspace workspace_;
    CocoaWeb web_;
    CocoaResources resources_{*this, controller_};
    CocoaMenu mainMenu_;
    CocoaWindow keyWindow_;
    CocoaWindow mainWindow_;
};

} // namespace vistrel::cocoa
