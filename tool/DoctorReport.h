#pragma once

#include "tool/DisplayReport.h"
#include "tool/Examination.h"
#include "tool/SettingsReport.h"
#include "tool/StatusReport.h"
#include "tool/SystemReport.h"

namespace vistrel::tool {

/// All that the report of a fault needs.
struct DoctorReport {
    /// The path of this program.
    std::string program = {};
    StatusReport status = {};
    std::vector<Component> gnustep = {};
    std::vector<Component> system = {};
    DisplayReport display = {};
    SettingsReport settings = {};
    /// The application that was asked about.
    std::optional<Application> application = {};
    Examination examination = {};
};

/// Everything but an application.
DoctorReport collectDoctorReport(const std::string& bundles);

/// Looks into the application of the report, where there is a display to show it on.
void examineApplication(DoctorReport& report, std::chrono::seconds limit);

/// Whether nothing is missing that was asked for.
bool isComplete(const DoctorReport& report);

/// For people: fits on a screen.
void printText(const DoctorReport& report);

void printJson(const DoctorReport& report);

} // namespace vistrel::tool
