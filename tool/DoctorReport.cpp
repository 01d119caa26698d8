#include "tool/DoctorReport.h"

#include "tool/UserDefaultsStore.h"

#include <unistd.h>

namespace vistrel::tool {

DoctorReport collectDoctorReport(const std::string& bundles) {
    const auto stored = userDefaults()->read();
    DoctorReport report{.program = ownProgram(),
                        .status = statusReport(findInstallation(ownProgram(), bundles),
                                               loadingDefaults(stored),
                                               loadedBundles("/proc", ::getuid())),
                        .system = reportSystem(),
                        .display = reportDisplay(),
                        .settings = settingsReport(readSettingsFile(homeFolder()), stored, {})};
    report.gnustep = reportGNUstep(
        report.status.installation ? report.status.installation->vistrel->path + "/Vistrel" : "");
    return report;
}

void examineApplication(DoctorReport& report, std::chrono::seconds limit) {
    if (!report.status.installation) {
        report.examination.problem =
            "It was not started, because there is nothing to load into it.";
    } else if (!report.display.problem.empty()) {
        report.examination.problem = "It was not started, because there is no display.";
    } else {
        report.examination = examine(*report.application, *report.status.installation,
                                     report.status.defaults, limit);
    }
}

bool isComplete(const DoctorReport& report) {
    return report.status.installation && report.display.problem.empty() &&
           (!report.application || report.examination.problem.empty());
}

} // namespace vistrel::tool
