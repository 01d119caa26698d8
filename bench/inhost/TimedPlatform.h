#pragma once

#include "Report.h"

#include "platform/Platform.h"

#include <memory>

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

class TimedMenu;

/// Passes everything on to another item.
class TimedMenuItem final : public MenuItem {
  public:
    explicit TimedMenuItem(std::int64_t& time);
    ~TimedMenuItem();

    MenuItem& bind(MenuItem& item) {
        item_ = &item;
        return *this;
    }

    Menu& submenu() override;

    [[nodiscard]] bool isOfSeparatorClass() const override {
        const Timer timer(time_);
        return item_->isOfSeparatorClass();
    }

    void setState(bool on) override {
        const Timer timer(time_);
        item_->setState(on);
    }

  private:
    std::int64_t& time_;
    MenuItem* item_ = nullptr;
    std::unique_ptr<TimedMenu> submenu_;
};

/// Passes everything on to another menu, and adds what its answers take to a sum.
class TimedMenu final : public Menu {
  public:
    explicit TimedMenu(std::int64_t& time) : time_(time), item_(time) {}

    Menu& bind(Menu& menu) {
        menu_ = &menu;
        return *this;
    }

    [[nodiscard]] bool exists() const override { return menu_->exists(); }

    [[nodiscard]] std::string menuName() const override {
        const Timer timer(time_);
        return menu_->menuName();
    }

    [[nodiscard]] std::int32_t itemCount() const override {
        const Timer timer(time_);
        return menu_->itemCount();
    }

    MenuItem& itemAtIndex(std::int32_t index) override {
        const Timer timer(time_);
        return item_.bind(menu_->itemAtIndex(index));
    }

    MenuItem& itemWithTitle(std::string_view title) override {
        const Timer timer(time_);
        return item_.bind(menu_->itemWithTitle(title));
    }

    [[nodiscard]] std::int32_t indexOfZoomItem() const override {
        const Timer timer(time_);
        return menu_->indexOfZoomItem();
    }

    void insertItem(const MenuItemDescription& item, std::int32_t index) override {
        const Timer timer(time_);
        menu_->insertItem(item, index);
    }

  private:
    std::int64_t& time_;
    Menu* menu_ = nullptr;
    TimedMenuItem item_;
};

inline TimedMenuItem::TimedMenuItem(std::int64_t& time) : time_(time) {}

inline TimedMenuItem::~TimedMenuItem() = default;

inline Menu& TimedMenuItem::submenu() {
    const Timer timer(time_);
    if (!submenu_)
        submenu_ = std::make_unique<TimedMenu>(time_);
    return submenu_->bind(item_->submenu());
}

/// Another platform, with a clock in the key window and one in the menus. What is left of a
/// command's time is the command's own.
class TimedPlatform final : public Platform, public Application {
  public:
    explicit TimedPlatform(Platform& platform)
        : platform_(platform), application_(platform.application()) {}

    /// Nanoseconds in the key window, and in finding it.
    [[nodiscard]] std::int64_t timeInWindow() const { return keyWindow_.time(); }

    /// Nanoseconds in the host's menus.
    [[nodiscard]] std::int64_t timeInMenus() const { return timeInMenus_; }

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

    Menu& mainMenu() override {
        const Timer timer(timeInMenus_);
        return mainMenu_.bind(application_.mainMenu());
    }

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
    std::int64_t timeInMenus_ = 0;
    TimedMenu mainMenu_{timeInMenus_};
};

} // namespace vistrel::bench
