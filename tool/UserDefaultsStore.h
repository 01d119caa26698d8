#pragma once

#include "tool/DefaultsStore.h"
#include "tool/SystemReport.h"

#include <memory>
#include <string>
#include <vector>

/// What the tool asks of GNUstep. UserDefaultsStoreGNUstep.mm needs its Foundation only: no
/// application, no display.
namespace vistrel::tool {

/// The defaults of the user who runs the tool.
std::unique_ptr<DefaultsStore> userDefaults();

/// The folder that these defaults are in.
std::string defaultsFolder();

/// The user's home, as GNUstep has it: $HOME does not count.
std::string homeFolder();

/// Where applications are looked for, in this order.
std::vector<std::string> applicationFolders();

/// The back ends that are installed.
std::vector<Component> backEnds();

} // namespace vistrel::tool
