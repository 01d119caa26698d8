#pragma once

#include "tool/Applications.h"
#include "tool/Installation.h"
#include "tool/Json.h"
#include "tool/LaunchArguments.h"
#include "tool/MenuReport.h"

#include <chrono>
#include <string>
#include <vector>

namespace vistrel::tool {

/// What was found in a running application.
struct Examination {
    /// Why nothing could be found out, in a sentence. Empty when all the rest is filled.
    std::string problem = {};
    /// The last lines that the application said, when there is a problem.
    std::vector<std::string> lastWords = {};
    /// What the diagnosing bundle wrote.
    Json findings = {};
    std::vector<MenuRow> windowMenu = {};
    std::vector<Collision> collisions = {};
};

/// Starts the application with Vistrel and the diagnosing bundle in it, which ends it.
Examination examine(const Application& application, const Installation& installation,
                    const LoadingDefaults& defaults, std::chrono::seconds limit);

} // namespace vistrel::tool
