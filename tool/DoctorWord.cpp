#include "tool/Console.h"
#include "tool/DoctorReport.h"
#include "tool/ExitCode.h"
#include "tool/Words.h"

#include <iostream>

namespace vistrel::tool {

int doctor(const DoctorOptions& options, const std::string& bundles) {
    DoctorReport report = collectDoctorReport(bundles);
    if (!options.application.empty()) {
        auto application = findCocoaApplication(options.application, usualPlaces());
        if (!application.found)
            return fail(application.problem);
        report.application = std::move(application.found);
        if (!options.json && report.display.problem.empty() && report.status.installation) {
            std::cout << "Starting " << report.application->name
                      << " once more for a moment. It is ended without saving anything.\n\n"
                      << std::flush;
        }
        examineApplication(report, std::chrono::seconds(options.seconds));
    }
    if (options.json)
        printJson(report);
    else
        printText(report);
    return isComplete(report) ? exitcode::done : exitcode::incomplete;
}

} // namespace vistrel::tool
