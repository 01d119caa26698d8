#pragma once

#include "core/VTRAboutNIBController.h"
#include "core/VTRPreferencesController.h"
#include "platform/Platform.h"
#include "platform/memory/CallLog.h"
#include "platform/memory/MemoryWindow.h"

#include <functional>
#include <map>
#include <memory>
#include <string>

namespace vistrel::memory {

/// What an interface file has connected.
class MemoryOutlets final : public PreferencesOutlets {
  public:
    Window& window() override;
    void setAppName(std::string_view name) override;

    std::unique_ptr<MemoryWindow> loadedWindow;
    std::string appName;
};

/// The controller of one of the bundle's windows. `Owner` is the class of the core that the window
/// belongs to.
template <typename Owner> class MemoryWindowController final : public WindowController {
  public:
    MemoryWindowController(Platform& platform, CallLog& log, const MemoryDesktop& desktop,
                           std::string name)
        : owner(platform, outlets), log_(log), desktop_(desktop), name_(std::move(name)) {
        log_.record("init ", name_);
        owner.init();
    }

    Window& window() override {
        if (outlets.loadedWindow == nullptr && canLoad) {
            log_.record("load ", name_);
            outlets.loadedWindow = std::make_unique<MemoryWindow>(
                log_, desktop_, name_, Rect{.x = 0, .y = 0, .width = 500, .height = 400});
            owner.awakeFromNib();
        }
        return outlets.window();
    }

    void showWindow() override {
        log_.record("showWindow ", name_);
        window().makeKeyAndOrderFront();
    }

    MemoryOutlets outlets;
    Owner owner;
    /// False stands for an interface file that is missing or damaged.
    bool canLoad = true;

  private:
    CallLog& log_;
    const MemoryDesktop& desktop_;
    std::string name_;
};

/// The bundle's own files: an Info.plist and two interface files.
class MemoryResources final : public BundleResources {
  public:
    MemoryResources(Platform& platform, CallLog& log, const MemoryDesktop& desktop)
        : platform_(platform), log_(log), desktop_(desktop) {}

    [[nodiscard]] std::string infoText(std::string_view key) const override;
    WindowController* makePreferencesController() override;
    WindowController* makeAboutController() override;

    /// The Info.plist.
    std::map<std::string, std::string, std::less<>> info = {
        {"VTRMainServer", "http://main.example"},
        {"VTRSecondServer", "http://second.example"},
        {"VTRReleaseNotesPage", "http://blog.example/vistrel"},
    };
    /// False stands for a platform that can make no window controller.
    bool canMakeControllers = true;
    /// Given to the controllers when they are made.
    bool canLoadInterfaces = true;

    std::unique_ptr<MemoryWindowController<VTRPreferencesController>> preferences;
    std::unique_ptr<MemoryWindowController<VTRAboutNIBController>> about;

  private:
    Platform& platform_;
    CallLog& log_;
    const MemoryDesktop& desktop_;
};

} // namespace vistrel::memory
