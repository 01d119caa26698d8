#pragma once

#include "tool/Enabling.h"
#include "tool/Installation.h"
#include "tool/LoadedBundles.h"

#include <optional>
#include <string>
#include <vector>

namespace vistrel::tool {

/// An application whose own defaults say something about Vistrel.
struct NamedApplication {
    std::string name;
    bool loads;
    std::string reason;
};

/// Where Vistrel is installed, for whom it is enabled, and who has it.
struct StatusReport {
    std::optional<Installation> installation = {};
    LoadingDefaults defaults = {};
    std::vector<NamedApplication> named = {};
    /// Loaders of other copies that are listed.
    std::vector<std::string> otherLoaders = {};
    /// The running applications that have Vistrel in them.
    std::vector<LoadedBundle> running = {};
};

StatusReport statusReport(const std::optional<Installation>& installation,
                          const LoadingDefaults& defaults, std::vector<LoadedBundle> running);

/// What is different between a bundle in memory and the one that is installed, or empty.
std::string difference(const LoadedBundle& loaded, const std::optional<Installation>& installed);

void printText(const StatusReport& status);

void printJson(const StatusReport& status);

} // namespace vistrel::tool
