#pragma once

#include "platform/Platform.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vistrel {

/// An item of a menu as a test wants it, or as it was found.
struct ContractItem {
    std::string title = {};
    /// Name of the action method, empty for none.
    std::string action = {};
    /// The item's target and represented object are the controller's, or a stranger's.
    bool hasTarget = false;
    bool isSeparator = false;
    std::string key = {};
    ModifierMask mask = commandMask;
    bool isOn = false;
    std::vector<ContractItem> submenu = {};
    /// The submenu is the application's Window menu.
    bool isWindowMenu = false;

    friend bool operator==(const ContractItem&, const ContractItem&) = default;
};

/// What an alert has shown, the default button first.
struct ContractAlert {
    std::string title = {};
    std::string message = {};
    std::vector<std::string> buttons = {};

    friend bool operator==(const ContractAlert&, const ContractAlert&) = default;
};

/// How a user may dismiss an alert: by a button, or as one closes a window.
enum class AlertAnswer { byDefaultButton, byAlternateButton, byClosing };

/// A host on one of the platforms, with what the contract tests need to set it up and to look at it
/// other than through the seam. Each platform's test program links its own.
class ContractHost {
  public:
    static std::unique_ptr<ContractHost> make();

    virtual ~ContractHost() = default;

    virtual Platform& platform() = 0;

    /// Gives the host this main menu, or none.
    virtual void setMainMenu(const std::vector<ContractItem>& items) = 0;
    virtual void removeMainMenu() = 0;

    /// The items of the Window menu as they really are.
    virtual std::vector<ContractItem> windowMenuItems() = 0;

    /// Opens a window that is key and main. One is open at a time.
    virtual void openWindow(const Rect& frame) = 0;
    virtual void closeWindow() = 0;

    /// Lets at least this much time pass, with the host's event loop running.
    virtual void letPass(double seconds) = 0;

    /// Has the user dismiss the next alert in this way.
    virtual void answerNextAlert(AlertAnswer answer) = 0;

    /// The alert that was answered last.
    virtual ContractAlert lastAlert() = 0;

    /// Has the host refuse to quit when it is asked to, as with unsaved documents.
    virtual void refuseToTerminate() = 0;

    /// How often it was asked.
    virtual int terminationsAsked() = 0;

    virtual void storeDefault(std::string_view key, const PropertyList& value) = 0;
    virtual void removeDefault(std::string_view key) = 0;

    /// An existing folder that belongs to the test.
    virtual std::string folder() = 0;

    /// The path of a program that writes down the arguments that it is started with.
    virtual std::string recordingProgram() = 0;

    /// What it has written down, once it has.
    virtual std::vector<std::string> recordedArguments() = 0;

    /// Makes a file that is no property list.
    virtual void makeDamagedFile(const std::string& path) = 0;
};

} // namespace vistrel
