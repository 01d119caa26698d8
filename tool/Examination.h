#pragma once

#include "tool/Applications.h"
#include "tool/Installation.h"
#include "tool/LaunchArguments.h"
#include "tool/MenuReport.h"

#include <array>
#include <chrono>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vistrel::tool {

/// What was found in a running application.
struct Examination {
    /// Why nothing could be found out, in a sentence. Empty when all the rest is filled.
    std::string problem = {};
    /// The last lines that the application said, when there is a problem.
    std::vector<std::string> lastWords = {};
    /// The path of the Vistrel that was loaded into it, if any was.
    std::optional<std::string> vistrel = {};
    /// The titles of the menu that the application calls its Window menu, of the one that Vistrel
    /// found, and of the Zoom item that it found.
    std::optional<std::string> windowsMenu = {};
    std::optional<std::string> foundMenu = {};
    std::optional<std::string> zoomItem = {};
    std::vector<MenuRow> windowMenu = {};
    std::vector<Collision> collisions = {};
    /// The screens as the application has them: x and y from the lower left, width, height.
    std::vector<std::array<double, 4>> screens = {};
    std::optional<std::string> backEnd = {};
    /// The values that the settings have in it, as JSON.
    std::vector<std::pair<std::string, std::string>> settings = {};
};

/// Starts the application with Vistrel and the diagnosing bundle in it, which ends it.
Examination examine(const Application& application, const Installation& installation,
                    const LoadingDefaults& defaults, std::chrono::seconds limit);

} // namespace vistrel::tool
