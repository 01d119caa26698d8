#include "tool/EnabledText.h"
#include "tool/StatusReport.h"

#include <iostream>

namespace vistrel::tool {

namespace {

std::string versionText(const std::string& version) {
    return version.empty() ? "of unknown version" : "version " + version;
}

} // namespace

void printText(const StatusReport& status) {
    if (status.installation) {
        std::cout << "Installed in " << status.installation->folder << ", "
                  << versionText(status.installation->vistrel->version) << ".\n";
    } else {
        std::cout << "Not installed: " << noInstallation << '\n';
    }
    std::cout << enabledText(status.defaults) << '\n';
    for (const auto& [name, loads, reason] : status.named)
        std::cout << "  " << name << ": " << (loads ? "on" : "off") << ", " << reason << '\n';
    for (const auto& path : status.otherLoaders)
        std::cout << "The loader of another copy is listed: " << path << '\n';
    for (const auto& [domain, reason] : status.defaults.unreadable)
        std::cout << "The defaults of " << domain << " cannot be read: " << reason << '\n';
    std::cout << (status.running.empty() ? "No running application of yours has it.\n"
                                         : "Running applications that have it:\n");
    for (const auto& loaded : status.running) {
        const auto different = difference(loaded, status.installation);
        std::cout << "  " << loaded.process << " " << loaded.name << ": "
                  << versionText(loaded.version) << ", " << loaded.path
                  << (different.empty() ? "" : " (" + different + ")") << '\n';
    }
}

} // namespace vistrel::tool
