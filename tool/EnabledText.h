#pragma once

#include "tool/Enabling.h"

#include <string>
#include <vector>

namespace vistrel::tool {

/// For whom Vistrel is enabled, in one sentence.
std::string enabledText(const LoadingDefaults& defaults);

/// What changes, in one line.
std::string changeText(const Change& change);

/// "a, b and c".
std::string enumeration(const std::vector<std::string>& names);

} // namespace vistrel::tool
