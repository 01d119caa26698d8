#pragma once

#include "Report.h"

#include "platform/Platform.h"

namespace vistrel::bench {

/// Adds the nanoseconds for which it lives to a sum.
class Timer {
  public:
    explicit Timer(std::int64_t& sum) : sum_(sum) {}

    ~Timer() { sum_ += now() - begin_; }

    Timer(const Timer&) = delete;
    Timer& operator=(const Timer&) = delete;

  private:
    std::int64_t& sum_;
    std::int64_t begin_ = now();
};

/// Passes everything on to another window, and counts what its answers and its moves take.
class TimedWindow final : public Window {
  public:
    Window& bind(Window& window) {
        window_ = &window;
        return *this;
    }

    /// Nanoseconds, all calls together.
    [[nodiscard]] std::int64_t& time() const { return time_; }

    [[nodiscard]] Rect frame() const override {
        const Timer timer(time_);
        return window_->frame();
    }

    Screen& screen() override {
        const Timer timer(time_);
        return window_->screen();
    }

    void setFrameAnimated(const Rect& frame) override {
        const Timer timer(time_);
        window_->setFrameAnimated(frame);
    }

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
    mutable std::int64_t time_ = 0;
};

/// Another platform, whose key window is timed. What is left of a command's time is the command's
/// own: calculation, flags, and the marks in the menu.
class TimedPlatform final : public Platform, public Application {
  public:
    explicit TimedPlatform(Platform& platform)
        : platform_(platform), application_(platform.application()) {}

    /// Nanoseconds in the key window, and in finding it.
    [[nodiscard]] std::int64_t timeInWindow() const { return keyWindow_.time(); }

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

    Window& keyWindow() override {
        const Timer timer(keyWindow_.time());
        return keyWindow_.bind(application_.keyWindow());
    }

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
