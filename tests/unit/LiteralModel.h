#pragma once

#include "core/Rect.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// A second model of the start-up and of the arrangement commands, to hold against the core.
///
/// It is the same behaviour told another way: plain data, one plain function for each command,
/// every step written out where it happens, nothing shared between commands that are merely alike.
/// It shares no code with the core and must not: a mistake would have to be made twice to go
/// unseen. Where the two differ, neither is right by itself.
namespace vistrel::literal {

struct Window {
    std::string name;
    Rect frame;
    std::int64_t level = 0;
    std::uint64_t collectionBehavior = 0;
};

struct Item {
    std::string title;
    /// No target, and the action that zooms the window.
    bool zooms = false;
    bool isSeparator = false;
    bool isMarked = false;
};

struct Menu {
    std::string name;
    std::vector<Item> items;
};

/// An item of the main menu.
struct TopItem {
    std::string title;
    std::optional<Menu> submenu;
};

/// The host's world with the controller in it.
struct Model {
    // The desktop.
    std::vector<Rect> screens;
    double now = 0;
    /// When setFullscreenWithDelay is due, in the order in which it was asked for.
    std::vector<double> pending;

    // The host.
    std::vector<TopItem> mainMenu;
    bool separatorsHaveOwnClass = true;
    std::vector<Window> windows;
    std::optional<std::size_t> keyWindow;
    std::optional<std::size_t> mainWindow;
    std::uint32_t systemUIMode = 0;
    std::uint32_t systemUIOptions = 0;

    // The host defaults, those of the settings file already copied into them.
    std::int64_t globalSettingsIndex = 0;
    std::int64_t kuiMode = 0;
    std::int64_t windowMode = 0;
    bool spotlightBOOL = false;
    bool globalSettingsFakeFSABool = false;
    bool vtrDisplaySetupBool = false;
    std::map<std::string, Rect> savedFrames;

    // The controller.
    std::int32_t screenCount = 0;
    std::string screensString;
    bool isEnabled = false;
    bool isFullscreen = false;
    bool isLeft = false;
    bool isRight = false;
    bool isThreeL = false;
    bool isThreeM = false;
    bool isThreeR = false;
    bool isFloating = false;
    Rect rect;
    Rect rectLeft;
    Rect rectRight;
    Rect rectThreeL;
    Rect rectThreeM;
    Rect rectThreeR;

    /// What the host was asked to change, in order, in the words of the memory platform's call log.
    /// Check marks are not among it; they stand in the items.
    std::vector<std::string> requests;
};

void insertMenu(Model& model);
void startRestore(Model& model);
void saveWind(Model& model);
void restoreWind(Model& model);

void left(Model& model);
void right(Model& model);
void threeL(Model& model);
void threeM(Model& model);
void threeR(Model& model);

void center(Model& model);
void centerAverage(Model& model);
void floating(Model& model);

void setKUIMode(Model& model);
void doFullscreen(Model& model);
void setFullscreenWithDelay(Model& model);
void makeLionFullscreen(Model& model);
void spotlight(Model& model);

/// Lets time pass, with the delayed steps that become due.
void advance(Model& model, double seconds);

} // namespace vistrel::literal
