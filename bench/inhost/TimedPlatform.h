#pragma once

#include "platform/Platform.h"

namespace vistrel::bench {

/// Passes everything on to another window, and counts what moving it takes.
class TimedWindow final : public Window {
  public:
    Window& bind(Window& window);

    /// Nanoseconds in setFrameAnimated(), all calls together.
    [[nodiscard]] std::int64_t timeOfMoves() const { return timeOfMoves_; }

    [[nodiscard]] Rect frame() const override { return window_->frame(); }

    Screen& screen() override { return window_->screen(); }

    void setFrameAnimated(const Rect& frame) override;

    [[nodiscard]] Rect frameRectForContentRect(const Rect& content) const override {
        return window_->frameRectForContentRect(content);
    }

    void center() override { window_->center(); }

    void setLevel(std::int64_t level) override { window_->setLevel(level); }

    void setCollectionBehavior(std::uint64_t behavior) override {
        window_->setCollectionBehavior(behavior);
    }

    void makeKeyAndOrderFront() override { window_->makeKeyAndOrderFront(); }

  private:
    Window* window_ = nullptr;
    std::int64_t timeOfMoves_ = 0;
};

/// Another platform, whose key window is timed.
class TimedPlatform final : public Platform, public Application {
  public:
    explicit TimedPlatform(Platform& platform)
        : platform_(platform), application_(platform.application()) {}

    [[nodiscard]] std::int64_t timeOfMoves() const { return keyWindow_.timeOfMoves(); }

    Application& application() override { return *this; }

    UserDefaults& userDefaults() override { return platform_.userDefaults(); }

    FileManager& fileManager() override { return platform_.fileManager(); }

    Workspace& workspace() override { return platform_.workspace(); }

    Web& web() override { return platform_.web(); }

    BundleResources& resources() override { return platform_.resources(); }

    [[nodiscard]] std::optional<std::string> bundleIdentifier() const override {
        return application_.bundleIdentifier();
    }

    [[nodiscard]] std::string bundlePath() const override { return application_.bundlePath(); }

    [[nodiscard]] std::string localizedString(std::string_view key) const override {
        return application_.localizedString(key);
    }

    Menu& mainMenu() override { return application_.mainMenu(); }

    Window& keyWindow() override { return keyWindow_.bind(application_.keyWindow()); }

    Window& mainWindow() override { return application_.mainWindow(); }

    [[nodiscard]] std::int32_t screenCount() const override { return application_.screenCount(); }

    void setSystemUIMode(SystemUIMode mode) override { application_.setSystemUIMode(mode); }

    [[nodiscard]] std::int32_t windowLevelForKey(std::int32_t key) const override {
        return application_.windowLevelForKey(key);
    }

    void showSearchWindow(std::string_view text, std::uint32_t options) override {
        application_.showSearchWindow(text, options);
    }

    void performAfterDelay(double seconds, std::function<void()> call) override {
        application_.performAfterDelay(seconds, std::move(call));
    }

    bool runAlert(const Alert& alert) override { return application_.runAlert(alert); }

    void terminate() override { application_.terminate(); }

    void log(std::string_view line) override { application_.log(line); }

  private:
    Platform& platform_;
    Application& application_;
    TimedWindow keyWindow_;
};

} // namespace vistrel::bench
