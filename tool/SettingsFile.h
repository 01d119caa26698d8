#pragma once

#include "core/PropertyList.h"

#include <string>

namespace vistrel::tool {

/// The file with the settings for all applications.
struct SettingsFile {
    enum class State { absent, read, unreadable };

    std::string path = {};
    State state = State::absent;
    /// Why it cannot be read, in a sentence.
    std::string problem = {};
    /// What it holds. Empty unless it was read.
    Dictionary values = {};
};

/// Reads the file of the user with this home folder, as an application would, and finds out why it
/// cannot be read.
SettingsFile readSettingsFile(const std::string& home);

/// The settings that applications take over from the file at their start: the values that its
/// values count as, or the defaults while there is no file.
Dictionary effectiveSettings(const SettingsFile& file);

} // namespace vistrel::tool
