#include "tool/ExitCode.h"
#include "tool/StatusReport.h"
#include "tool/UserDefaultsStore.h"
#include "tool/Words.h"

#include <unistd.h>

namespace vistrel::tool {

int status(const StatusOptions& options, const std::string& bundles) {
    const auto report =
        statusReport(findInstallation(ownProgram(), bundles),
                     loadingDefaults(userDefaults()->read()), loadedBundles("/proc", ::getuid()));
    if (options.json)
        printJson(report);
    else
        printText(report);
    return exitcode::done;
}

} // namespace vistrel::tool
