#pragma once

#include "core/Settings.h"

namespace vistrel {

class Platform;
class PreferencesOutlets;

/// What the settings window does beyond editing the host defaults, which its controls do by
/// themselves. Made with its window controller by BundleResources::makePreferencesController().
class VTRPreferencesController {
  public:
    /// Both must outlive the controller.
    VTRPreferencesController(Platform& platform, PreferencesOutlets& outlets)
        : platform_(platform), outlets_(outlets) {}

    /// Follows the initialisation of the window controller.
    void init();

    /// The interface file has been loaded: shows the window with the name of the active
    /// application, reads the settings file and copies it into the host defaults.
    void awakeFromNib();

    /// Writes the global settings from the host defaults into the settings file. They act in each
    /// application from its next launch on.
    void savePreferences();

    /// Opens the maker's home page.
    void openQuorvix();

    /// Opens the manual.
    void openManual();

    /// This window's own copy of the settings.
    [[nodiscard]] Settings& settings() { return settings_; }

  private:
    Platform& platform_;
    PreferencesOutlets& outlets_;
    Settings settings_;
};

} // namespace vistrel
