#pragma once

#include "core/Rect.h"
#include "core/Settings.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vistrel {

struct Layout;
struct MenuEntry;
class Application;
class Menu;
class MenuItem;
class Platform;
class WindowController;

/// What the controller keeps for as long as the host runs. Everything starts as zero; Corvane's
/// insertMenu() gives the first real values.
struct CorvaneFields {
    /// Number of attached screens at the last count; counted only while one frame is kept for each
    /// display setup.
    std::int32_t screens = 0;
    /// `screens` in decimal, or empty while there is one frame for all display setups.
    std::string screensString;
    /// Menu bar and Dock are hidden by "Toggle Menu And Dock" or from the start.
    bool isEnabled = false;
    /// The key window fills the screen.
    bool isFullscreen = false;
    bool isLeft = false;
    bool isRight = false;
    bool isThreeL = false;
    bool isThreeM = false;
    bool isThreeR = false;
    bool isFloating = false;
    /// The frame that "Toggle Fullscreen" gives back.
    Rect rect;
    /// The frames that the half and third commands give back.
    Rect rectLeft;
    Rect rectRight;
    Rect rectThreeL;
    Rect rectThreeM;
    Rect rectThreeR;
    /// The settings window's controller, and the About window's. Made at the first use and kept.
    WindowController* preferencesController = nullptr;
    WindowController* aboutNIBController = nullptr;
};

/// The Window menu of the host, or nothing. The search ends at the first item of the main menu that
/// has no submenu, also where the Window menu would follow it.
Menu& windowMenu(Platform& platform);

/// The item of the Window menu with the title "Zoom", or nothing.
MenuItem& zoomMenuItem(Platform& platform);

/// Shows or clears the check mark of the item `offset` below the Zoom item of `menu`, whatever it
/// is.
void setMark(Menu& menu, std::int32_t offset, bool on);

/// The controller: one object per host process, the target of every menu command.
///
/// Its flags and frames belong to the process, not to a window. The commands share them on purpose:
/// each ends the modes of the others by clearing their flags.
class Corvane : private CorvaneFields {
  public:
    /// `platform` must outlive the controller.
    explicit Corvane(Platform& platform) : platform_(platform) {}

    /// Loads the settings, inserts the block of commands into the host's Window menu, applies the
    /// start-up modes and resets the toggles. Called once, when the bundle has been loaded.
    void insertMenu();

    /// Move the key window to a half or a third of its screen's width, at the screen's full height,
    /// or back to where it was before. The position is counted from the origin of all screens, also
    /// for a window on another one.
    void left();
    void right();
    void threeL();
    void threeM();
    void threeR();

    /// Centres the key window, 20 points lower while menu bar and Dock are hidden.
    void center();

    /// Gives the key window the standard size, then centres it.
    void centerAverage();

    /// Makes the key window float above all others, or ends that. What is toggled is the
    /// controller, so the second call ends it for whichever window is key by then.
    void floating();

    /// Hides menu bar and Dock, or shows them again.
    void setKUIMode();

    /// Makes the key window fill its screen, 0.3 seconds from now, with menu bar and Dock hidden;
    /// or puts it back where it was.
    void doFullscreen();

    /// The delayed step of doFullscreen(): fills the screen with the window that is key by now.
    void setFullscreenWithDelay();

    /// Lets the main window take part in the system's own full-screen mode.
    void makeLionFullscreen();

    /// Opens the system's search window.
    void spotlight();

    /// Keeps the key window's frame for this application and display setup, and says so.
    void saveWind();

    /// Puts the key window where its saved frame is, or says that none is saved for this
    /// application and display setup; a stored value that is not a text counts as none. Either way
    /// it ends full screen and the halves and thirds, but hides or shows no menu bar.
    void restoreWind();

    /// The same at the start of the host, without a word and without ending anything.
    void startRestore();

    /// Opens the settings window.
    void preferences();

    /// Opens the About window in the centre of the screen, also when it is open already.
    void about();

    /// Asks the maker's server for the number of the latest version and says how this one compares.
    /// Blocks the host until the user has answered.
    void updates();

    /// Open the page of release notes and the list of the maker's applications.
    void openWebsite();
    void quorvix();

    /// Where the active application is the Finder, quits the host and has it opened again one
    /// second later. No command leads here.
    void restartFinder();

    [[nodiscard]] const CorvaneFields& fields() const { return *this; }

    [[nodiscard]] Settings& settings() { return settings_; }

  private:
    void makeMainWindowFullScreenCapable();
    void countScreens();
    void insertBlock();
    void insertEntry(const MenuEntry& entry, std::int32_t offset);
    void insertClosingSeparator(std::int32_t offset);
    void applyStartUpMode();
    void resetToggles();
    [[nodiscard]] std::string savedFrameKey() const;
    bool restoreSavedFrame();
    void offerDownload();
    void tell(std::string_view title, std::string_view message);

    void toggle(const Layout& layout);
    void centerKeyWindow();
    void endLayouts();
    void clearHalvesAndThirds();
    void enterFullscreen(Menu& menu);
    void leaveFullscreen(Menu& menu);
    [[nodiscard]] Application& application() const;

    Platform& platform_;
    Settings settings_;
};

} // namespace vistrel
