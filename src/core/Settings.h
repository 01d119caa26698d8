#pragma once

#include "core/PropertyList.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>

namespace vistrel {

class FileManager;
class UserDefaults;

/// How a global setting is held in the settings file and copied into the host defaults.
enum class SettingKind {
    /// An integer in both.
    integer,
    /// A boolean in the file, the integer 0 or 1 in the host defaults.
    booleanAsInteger,
    /// A boolean in both.
    boolean,
};

struct Setting {
    std::string_view key;
    SettingKind kind;
    /// The value while there is no settings file; a boolean is 0 or 1.
    std::int32_t defaultValue;
};

/// The settings that one file holds for all applications, in the order in which they are copied.
inline constexpr std::array globalSettings{
    Setting{"globalSettingsIndex", SettingKind::integer, 0},
    Setting{"spotlightBOOLIndex", SettingKind::integer, 1},
    Setting{"spotlightBOOL", SettingKind::booleanAsInteger, 0},
    Setting{"globalSettingsRestartBOOL", SettingKind::boolean, 0},
    Setting{"globalSettingsFakeFSABool", SettingKind::boolean, 0},
    Setting{"vtrDisplaySetupBool", SettingKind::boolean, 0},
    Setting{"vtrRestartFinderBOOL", SettingKind::boolean, 0},
};

inline constexpr std::string_view settingsFolder = "~/Library/Application Support/Vistrel/";
inline constexpr std::string_view settingsFile = "/Settings.plist";

/// One copy of the settings dictionary and the path of the file it belongs to. The controller and
/// the settings window each hold one; the two are read on their own and never reconciled.
class Settings {
  public:
    /// Full path of the settings file. Empty before load().
    [[nodiscard]] const std::string& dataPath() const { return dataPath_; }

    /// Keeps a copy of `path`.
    void setDataPath(std::string path) { dataPath_ = std::move(path); }

    /// The settings dictionary, or nullptr when the file exists and cannot be read.
    [[nodiscard]] const std::shared_ptr<Dictionary>& VTRData() const { return data_; }

    /// Keeps this very dictionary, shared with the caller: a change made by one is seen by both.
    void setVTRData(std::shared_ptr<Dictionary> data) { data_ = std::move(data); }

    /// Makes the settings folder when it is missing, reads the file, or builds the defaults in
    /// memory when there is none, and copies the global settings into the host defaults.
    void load(FileManager& files, UserDefaults& defaults);

    /// Copies the global settings from the host defaults into the dictionary and writes all of it
    /// to the file. Does nothing without a dictionary: a damaged file stays as it is.
    void save(FileManager& files, const UserDefaults& defaults);

  private:
    void mirror(UserDefaults& defaults) const;

    std::string dataPath_;
    std::shared_ptr<Dictionary> data_;
};

/// The dictionary that stands for a settings file that does not exist yet.
Dictionary defaultSettings();

} // namespace vistrel
