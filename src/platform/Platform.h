#pragma once

#include "core/Alert.h"
#include "core/MenuItemDescription.h"
#include "core/PropertyList.h"
#include "core/Rect.h"
#include "core/SystemUIMode.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// What the core asks of the desktop, and nothing else.
///
/// Rules for every class here:
/// - A platform reports and acts; it never decides, reads no setting and changes no flag of the
///   core.
/// - A message to nothing is legal. Where there is no window, menu or item, the platform answers a
///   reference to an object that stands for nothing: its questions answer zero, false or empty, and
///   its requests do nothing.
/// - A reference that a question answers is valid until the same question is asked again. Ask anew
///   before every operation rather than keep one: a host may open, close and exchange its windows
///   and menus at any time.
/// - No operation throws. A failure that the core must see is in the result type; any other is
///   silent.
/// - Everything is called on the host's main thread.
namespace vistrel {

/// One of the user's screens.
class Screen {
  public:
    /// The whole screen, with the areas of menu bar and Dock. All zero from nothing.
    [[nodiscard]] virtual Rect frame() const = 0;

  protected:
    ~Screen() = default;
};

/// A window of the host.
class Window {
  public:
    /// The window's frame with its decorations. All zero from nothing.
    [[nodiscard]] virtual Rect frame() const = 0;

    /// The screen that the window is on, or nothing when it is on none.
    virtual Screen& screen() = 0;

    /// Moves and resizes the window, decorations included, with animation, and redraws it. When
    /// this returns, the animation has ended and the window stands at `frame`, or as near to it as
    /// the window's own limits allow.
    virtual void setFrameAnimated(const Rect& frame) = 0;

    /// The frame of this window whose content area would be exactly `content`. `content` itself
    /// from nothing that has decorations; all zero from nothing.
    [[nodiscard]] virtual Rect frameRectForContentRect(const Rect& content) const = 0;

    /// Centres the window on its screen, as the platform does it, without animation.
    virtual void center() = 0;

    /// Places the window among all windows on the screen. `level` is one that
    /// Application::windowLevelForKey() has answered.
    virtual void setLevel(std::int64_t level) = 0;

    /// Replaces the window's whole collection behaviour by `behavior`, a set of
    /// NSWindowCollectionBehavior bits (NSWindow.h).
    virtual void setCollectionBehavior(std::uint64_t behavior) = 0;

    /// Shows the window in front of the others of its level and gives it the keyboard.
    virtual void makeKeyAndOrderFront() = 0;

  protected:
    ~Window() = default;
};

class Menu;

/// An item of one of the host's menus.
class MenuItem {
  public:
    /// The item's submenu, or nothing when it has none.
    virtual Menu& submenu() = 0;

    /// Whether the item is of the same class as a newly made separator, or of one derived from it.
    /// This is a question about the class, not about how the item looks: where separators have no
    /// class of their own, every item is of that class. False from nothing.
    [[nodiscard]] virtual bool isOfSeparatorClass() const = 0;

    /// Shows the item's check mark, or takes it away.
    virtual void setState(bool on) = 0;

  protected:
    ~MenuItem() = default;
};

/// One of the host's menus.
class Menu {
  public:
    /// False only for the object that stands for nothing.
    [[nodiscard]] virtual bool exists() const = 0;

    /// The platform's private name of the menu: "NSWindowsMenu" for the application's Window menu.
    /// Empty when the menu has none.
    [[nodiscard]] virtual std::string menuName() const = 0;

    [[nodiscard]] virtual std::int32_t itemCount() const = 0;

    /// The item at `index`, counted from zero, or nothing outside the menu.
    virtual MenuItem& itemAtIndex(std::int32_t index) = 0;

    /// The first item with exactly this title, or nothing.
    virtual MenuItem& itemWithTitle(std::string_view title) = 0;

    /// The index of the first item that has no target and the action `performZoom:`, -1 when the
    /// menu has no such item, 0 from nothing.
    [[nodiscard]] virtual std::int32_t indexOfZoomItem() const = 0;

    /// Makes a new item with everything below it and inserts it, so that it stands at `index`. Does
    /// nothing when `index` is negative or beyond the end of the menu.
    virtual void insertItem(const MenuItemDescription& item, std::int32_t index) = 0;

  protected:
    ~Menu() = default;
};

/// The application into which the bundle is loaded.
class Application {
  public:
    /// The identifier of the host's main bundle, or nullopt when it declares none.
    [[nodiscard]] virtual std::optional<std::string> bundleIdentifier() const = 0;

    /// The full path of the host's main bundle.
    [[nodiscard]] virtual std::string bundlePath() const = 0;

    /// What the host's main bundle has for `key` in its default string table, or `key` itself.
    [[nodiscard]] virtual std::string localizedString(std::string_view key) const = 0;

    virtual Menu& mainMenu() = 0;
    virtual Window& keyWindow() = 0;
    virtual Window& mainWindow() = 0;

    /// The number of screens attached at this moment.
    [[nodiscard]] virtual std::int32_t screenCount() const = 0;

    /// Changes how much of the system's own interface is shown while the host is active
    /// (SetSystemUIMode of Carbon, MacApplication.h).
    virtual void setSystemUIMode(SystemUIMode mode) = 0;

    /// The window level that `key`, a CGWindowLevelKey (CGWindowLevel.h), stands for
    /// (CGWindowLevelForKey).
    [[nodiscard]] virtual std::int32_t windowLevelForKey(std::int32_t key) const = 0;

    /// Opens the system's search window with `text` in it (HISearchWindowShow of Carbon,
    /// HISearchWindow.h). `options` is a set of that function's option bits. A system without one
    /// says so in the log, in one line.
    virtual void showSearchWindow(std::string_view text, std::uint32_t options) = 0;

    /// Calls `call` once, `seconds` from now, from the host's event loop. The call waits for as
    /// long as the host is in a modal dialogue or follows the mouse. It cannot be cancelled.
    virtual void performAfterDelay(double seconds, std::function<void()> call) = 0;

    /// Shows `alert` and waits until it has been dismissed. Answers whether the default button did
    /// that (NSAlertDefaultReturn, NSPanel.h); every other way out of it answers false.
    virtual bool runAlert(const Alert& alert) = 0;

    /// Asks the host to quit, as its own Quit command does.
    virtual void terminate() = 0;

    /// Writes one line to the platform's log. `line` is a text, never a format.
    virtual void log(std::string_view line) = 0;

  protected:
    ~Application() = default;
};

/// The host's own defaults, one store per application. A change is seen by the next question at
/// once and reaches the disk in the platform's own time.
class UserDefaults {
  public:
    /// Numbers and texts are converted as integerValue(); anything else, or no value, is 0.
    [[nodiscard]] virtual std::int64_t integerForKey(std::string_view key) const = 0;

    /// Numbers and texts are converted as boolValue(); anything else, or no value, is false.
    [[nodiscard]] virtual bool boolForKey(std::string_view key) const = 0;

    /// The stored value with its type, or nullopt when there is none.
    [[nodiscard]] virtual std::optional<PropertyList> objectForKey(std::string_view key) const = 0;

    virtual void setInteger(std::int64_t value, std::string_view key) = 0;
    virtual void setBool(bool value, std::string_view key) = 0;
    virtual void setObject(const PropertyList& value, std::string_view key) = 0;

  protected:
    ~UserDefaults() = default;
};

/// The user's files. Paths are UTF-8.
class FileManager {
  public:
    /// `path` with a leading "~" replaced by the user's home folder.
    [[nodiscard]] virtual std::string expandTilde(std::string_view path) const = 0;

    /// Whether anything, file or folder, exists at `path`.
    [[nodiscard]] virtual bool fileExists(const std::string& path) const = 0;

    /// Makes a folder and the missing ones above it. A failure is silent.
    virtual void createDirectory(const std::string& path) = 0;

    /// Reads a property-list file. nullopt when there is no regular file, when it cannot be read as
    /// a property list, or when its root is no dictionary.
    [[nodiscard]] virtual std::optional<Dictionary>
    readDictionary(const std::string& path) const = 0;

    /// Writes an XML property list, whole and atomically: at any moment, and whatever fails, the
    /// file holds either all of its old or all of its new content. A failure is silent.
    virtual void writeDictionary(const Dictionary& dictionary, const std::string& path) = 0;

  protected:
    ~FileManager() = default;
};

/// The desktop around the host.
class Workspace {
  public:
    /// The name of the application that is in front. Empty when there is none.
    [[nodiscard]] virtual std::string activeApplicationName() const = 0;

    /// Opens a page in the user's browser, without waiting for it. A failure is silent.
    virtual void openURL(const std::string& url) = 0;

    /// Starts a program that outlives the host and waits for nothing. A failure is silent.
    virtual void launch(const std::string& path, const std::vector<std::string>& arguments) = 0;

  protected:
    ~Workspace() = default;
};

/// The web, as the host reaches it.
class Web {
  public:
    /// Empties the host's whole cache of downloads.
    virtual void removeAllCachedResponses() = 0;

    /// Downloads the text at `url` and waits for it, for no longer than the platform's usual
    /// time-out. nullopt when the download fails, or when what it brings is not UTF-8.
    [[nodiscard]] virtual std::optional<std::string> textAtURL(const std::string& url) = 0;

  protected:
    ~Web() = default;
};

/// What an interface file connects to the controller of its window.
class Outlets {
  public:
    /// The window, or nothing as long as the file has not been loaded.
    virtual Window& window() = 0;

  protected:
    ~Outlets() = default;
};

/// The outlets of the settings window.
class PreferencesOutlets : public Outlets {
  public:
    /// Shows `name` as that of the application whose own settings the window edits.
    virtual void setAppName(std::string_view name) = 0;

  protected:
    ~PreferencesOutlets() = default;
};

/// Controls a window of the bundle's own, which an interface file describes.
class WindowController {
  public:
    /// The window. The first call loads the interface file, and the controller's awakeFromNib()
    /// runs before it returns. Nothing when the file cannot be loaded.
    virtual Window& window() = 0;

    /// Brings the window to the front and gives it the keyboard.
    virtual void showWindow() = 0;

  protected:
    ~WindowController() = default;
};

/// What the bundle brings along.
class BundleResources {
  public:
    /// The text under `key` in the bundle's Info.plist, or the empty text when there is none.
    [[nodiscard]] virtual std::string infoText(std::string_view key) const = 0;

    /// A new controller for the settings window of the interface file "VTRPreferences", or for the
    /// About window of "VTRAbout". It lives as long as the process. nullptr when the platform
    /// cannot make one.
    virtual WindowController* makePreferencesController() = 0;
    virtual WindowController* makeAboutController() = 0;

  protected:
    ~BundleResources() = default;
};

/// One host process as the core sees it.
class Platform {
  public:
    virtual Application& application() = 0;
    virtual UserDefaults& userDefaults() = 0;
    virtual FileManager& fileManager() = 0;
    virtual Workspace& workspace() = 0;
    virtual Web& web() = 0;
    virtual BundleResources& resources() = 0;

  protected:
    ~Platform() = default;
};

} // namespace vistrel
