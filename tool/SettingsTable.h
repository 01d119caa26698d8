#pragma once

#include "core/PropertyList.h"

#include <span>
#include <string>
#include <string_view>

/// What Vistrel's settings are called and what their values mean.
namespace vistrel::tool {

enum class ValueKind { integer, boolean, text };

/// Where a setting is looked for.
enum class SettingPlace {
    /// In the settings file; at each start it is copied into the defaults of the application.
    file,
    /// In the defaults of the application.
    defaults,
};

struct KnownSetting {
    /// Its name, or the beginning of it when `isFamily` is set.
    std::string_view key;
    SettingPlace place;
    ValueKind kind;
    /// What a value means, in a sentence.
    std::string (*meaning)(const PropertyList* value);
    /// Whether a number may follow: there is one setting for each number of screens.
    bool isFamily = false;
};

/// All settings, those of the file in its order first.
std::span<const KnownSetting> knownSettings();

/// The setting with this key, or nullptr.
const KnownSetting* findSetting(std::string_view key);

} // namespace vistrel::tool
