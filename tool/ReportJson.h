#pragma once

#include "tool/Json.h"
#include "tool/SettingsReport.h"
#include "tool/StatusReport.h"

/// The reports for programs. In files of their own, because the library is large.
namespace vistrel::tool {

Json toJson(const StatusReport& status);

Json toJson(const SettingsReport& report);

} // namespace vistrel::tool
