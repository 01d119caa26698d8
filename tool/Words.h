#pragma once

#include "tool/CommandLine.h"
#include "tool/Enabling.h"

#include <optional>
#include <string>
#include <vector>

/// What the tool does at each word. Each answers what to end with, an exitcode. `bundles` is the
/// folder that the user named, or empty.
namespace vistrel::tool {

/// The names of the processes of the applications that the user named, or nullopt after a message
/// when one of them can be no name.
std::optional<std::vector<std::string>> processNames(const std::vector<std::string>& applications);

int change(Switch to, const SwitchOptions& options, const std::string& bundles);

/// Returns only when the application could not be started, or was only to be looked for.
int run(const RunOptions& options, const std::string& bundles);

int status(const StatusOptions& options, const std::string& bundles);

int doctor(const DoctorOptions& options, const std::string& bundles);

int settings(const SettingsOptions& options);

int purge(const PurgeOptions& options);

} // namespace vistrel::tool
