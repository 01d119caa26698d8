#pragma once

#include "platform/Platform.h"
#include "platform/cocoa/CocoaFileManager.h"
#include "platform/cocoa/CocoaMenu.h"
#include "platform/cocoa/CocoaUserDefaults.h"
#include "platform/cocoa/CocoaWindow.h"

namespace vistrel::cocoa {

/// The running Cocoa application.
class CocoaPlatform final : public Platform, public Application {
  public:
    /// `controller` is the Objective-C object that menu items send their actions to. It must
    /// outlive the platform.
    explicit CocoaPlatform(id controller) : mainMenu_(controller) {}

    Application& application() override { return *this; }

    UserDefaults& userDefaults() override { return userDefaults_; }

    FileManager& fileManager() override { return fileManager_; }

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override;
    Menu& mainMenu() override;
    Window& keyWindow() override;
    Window& mainWindow() override;
    [[nodiscard]] std::int32_t screenCount() const override;
    void setSystemUIMode(SystemUIMode mode) override;
    [[nodiscard]] std::int32_t windowLevelForKey(std::int32_t key) const override;
    void showSearchWindow(std::string_view text, std::uint32_t options) override;
    void performAfterDelay(double seconds, std::function<void()> call) override;
    void log(std::string_view line) override;

  private:
    CocoaUserDefaults userDefaults_;
    CocoaFileManager fileManager_;
    CocoaMenu mainMenu_;
    CocoaWindow keyWindow_;
    CocoaWindow mainWindow_;
};

} // namespace vistrel::cocoa
