#include "tool/ExitCode.h"
#include "tool/SettingsReport.h"
#include "tool/SettingsText.h"
#include "tool/UserDefaultsStore.h"
#include "tool/Words.h"

namespace vistrel::tool {

int settings(const SettingsOptions& options) {
    const auto names = processNames(options.applications);
    if (!names)
        return exitcode::wrongUsage;
    const auto report =
        settingsReport(readSettingsFile(homeFolder()), userDefaults()->read(), *names);
    if (options.json)
        printJson(report);
    else
        printText(report);
    return exitcode::done;
}

} // namespace vistrel::tool
