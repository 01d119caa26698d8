#pragma once

#include "tool/SettingsReport.h"

namespace vistrel::tool {

void printText(const SettingsReport& report);

void printJson(const SettingsReport& report);

} // namespace vistrel::tool
