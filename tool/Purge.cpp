#include "tool/Purge.h"

#include "tool/SettingsTable.h"

namespace vistrel::tool {

namespace {

/// Each start with Vistrel leaves a copy of every setting of the file.
bool hasRun(const Dictionary& domain) {
    return domain.find("vtrDisplaySetupBool") != nullptr;
}

/// Whether the key can be nobody else's.
bool isUnmistakable(std::string_view key) {
    return key.starts_with("VTR") || key.starts_with("vtr");
}

} // namespace

std::vector<Change> purge(const StoredDefaults& stored) {
    std::vector<Change> changes;
    for (const auto& [name, domain] : stored.domains) {
        for (const auto& [key, value] : domain.entries()) {
            if (key != enabledKey && findSetting(key) != nullptr &&
                (hasRun(domain) || isUnmistakable(key)))
                changes.push_back(
                    {.domain = name, .key = key, .before = value, .after = std::nullopt});
        }
    }
    return changes;
}

} // namespace vistrel::tool
