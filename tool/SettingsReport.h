#pragma once

#include "tool/DefaultsStore.h"
#include "tool/SettingsFile.h"
#include "tool/SettingsTable.h"

#include <optional>
#include <string>
#include <vector>

namespace vistrel::tool {

/// One setting as it is stored, and what comes of it.
struct ReportedSetting {
    std::string key;
    /// nullopt for a setting that is not stored.
    std::optional<PropertyList> value;
    /// What it counts as. Only for the settings of the file.
    std::optional<PropertyList> effective;
    std::string meaning;
    /// What is odd about the value: it has no effect, or counts as another one. A sentence each.
    std::vector<std::string> flags = {};
};

struct SettingsReport {
    SettingsFile file;
    /// Every setting of the file, and what else is in it.
    std::vector<ReportedSetting> forAll;

    struct Domain {
        std::string name;
        /// Why the domain cannot be read, or empty.
        std::string problem;
        std::vector<ReportedSetting> settings;
    };

    /// Those of the domains that were asked for, or of all that hold any.
    std::vector<Domain> domains;
};

/// Without `applications`, all domains are meant that hold any of the keys, also the global one.
SettingsReport settingsReport(const SettingsFile& file, const StoredDefaults& stored,
                              const std::vector<std::string>& applications);

} // namespace vistrel::tool
