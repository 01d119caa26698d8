#pragma once

#include "tool/Enabling.h"

#include <string>
#include <string_view>
#include <vector>

namespace vistrel::tool {

/// The arguments with which an application loads Vistrel this once, whatever its defaults say: the
/// bundles that it would load anyway but other loaders, then `loader`, then `more`.
std::vector<std::string> launchArguments(const LoadingDefaults& defaults,
                                         std::string_view application, const std::string& loader,
                                         const std::vector<std::string>& more = {});

/// Texts as the array that GNUstep reads from an argument.
std::string argumentArray(const std::vector<std::string>& texts);

} // namespace vistrel::tool
