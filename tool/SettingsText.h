#pragma once

#include "tool/Json.h"
#include "tool/SettingsReport.h"

namespace vistrel::tool {

/// What is in the file and what holds for all applications.
void printFile(const SettingsReport& report);

void printText(const SettingsReport& report);

Json toJson(const SettingsReport& report);

} // namespace vistrel::tool
