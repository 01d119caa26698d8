#include "tool/DoctorReport.h"
#include "tool/EnabledText.h"
#include "tool/SettingsTable.h"
#include "tool/ValueText.h"
#include "tool/Version.h"

#include <iomanip>
#include <iostream>

namespace vistrel::tool {

namespace {

/// One line of the report; the subject is empty where the line goes on with that above.
std::ostream& line(std::string_view subject) {
    return std::cout << '\n' << std::left << std::setw(12) << subject;
}

std::string named(const Component& component) {
    return component.name + (component.version.empty() ? "" : " " + component.version);
}

std::string joined(const std::vector<Component>& components) {
    std::string text;
    for (const auto& component : components)
        text += (text.empty() ? "" : ", ") + named(component);
    return text;
}

void printVistrel(const DoctorReport& report) {
    std::cout << std::left << std::setw(12) << "Vistrel" << "vistrel " << version << ", "
              << report.program;
    if (!report.status.installation)
        line("") << "The bundles are missing: " << noInstallation;
    else
        line("") << "bundles " << report.status.installation->vistrel->version << ", "
                 << report.status.installation->folder;
    line("") << enabledText(report.status.defaults);
    for (const auto& loaded : report.status.running) {
        line("") << "in " << loaded.process << " " << loaded.name << ": " << loaded.path << " "
                 << loaded.version;
        const auto different = difference(loaded, report.status.installation);
        std::cout << (different.empty() ? "" : "  ! " + different);
    }
}

void printDisplay(const DisplayReport& display) {
    line("Display") << (display.problem.empty() ? display.name : display.problem);
    if (!display.problem.empty())
        return;
    for (const auto& monitor : display.monitors)
        line("") << monitor.name << " " << monitor.width << "x" << monitor.height << " at ("
                 << monitor.x << ", " << monitor.y << ")"
                 << (monitor.isPrimary ? ", primary" : "");
    if (!display.hasManager) {
        line("Windows") << "no window manager that follows the EWMH";
        return;
    }
    line("Windows") << (display.windowManager.empty() ? "a manager without a name"
                                                      : display.windowManager)
                    << (display.missingHints.empty() ? ", EWMH as needed"
                                                     : ", EWMH without " +
                                                           enumeration(display.missingHints));
}

void printSettings(const SettingsReport& settings) {
    constexpr std::array states{"no file, so the defaults hold", "read", "unreadable: "};
    line("Settings") << settings.file.path << ": "
                     << states.at(static_cast<std::size_t>(settings.file.state))
                     << settings.file.problem;
    for (const auto& [key, value, effective, meaning, flags] : settings.forAll) {
        line("") << key << " = " << valueText(effective ? effective : value);
        for (const auto& flag : flags)
            std::cout << "  ! " << flag;
    }
}

void printWindowMenu(const Examination& examination) {
    const auto& menu = examination.windowMenu;
    const auto positions = ourPositions(menu);
    if (positions.empty()) {
        line("") << "none of Vistrel's items is in it";
        return;
    }
    // A separator of the block's own stands ahead of its first item.
    line("") << (positions.front() > 1
                     ? "the block begins behind \"" + menu[positions.front() - 2].title + "\":"
                     : "the block begins at the top of the menu:");
    for (const auto position : positions)
        line("") << std::right << std::setw(4) << position << "  " << std::left
                 << menu[position].title
                 << (menu[position].shortcut.key.empty()
                         ? ""
                         : "  " + shortcutText(menu[position].shortcut));
}

std::string titleOf(const Json& findings, const char* key, const char* what) {
    const auto& title = findings.at(key);
    return title.is_string() ? std::string(what) + " \"" + title.get<std::string>() + "\""
                             : "no " + std::string(what);
}

void printFindings(const Examination& examination) {
    const auto& findings = examination.findings;
    line("") << (findings.at("vistrel").is_string() ? "Vistrel is installed in it."
                                                    : "Vistrel could not be loaded into it.");
    line("") << titleOf(findings, "windowsMenu", "Window menu") << ", "
             << titleOf(findings, "zoomItem", "Zoom item");
    if (findings.at("vistrel").is_string() && findings.at("windowsMenu").is_string())
        printWindowMenu(examination);
    for (const auto& [ours, theirs, keys, theirsWins] : examination.collisions)
        line("") << "! " << keys << " is both \"" << ours << "\" and \"" << theirs << "\"; "
                 << (theirsWins ? "the application's own item gets it" : "Vistrel's item gets it");
    if (examination.collisions.empty())
        line("") << "no shortcut of Vistrel's is one of the application's";
    line("") << "its own values of the settings:";
    for (const auto& setting : knownSettings())
        if (const auto value = findings.at("defaults").find(setting.key);
            value != findings.at("defaults").end())
            line("") << "  " << setting.key << " = " << value->dump();
    if (findings.at("backEnd").is_string())
        line("") << "back end " << findings.at("backEnd").get<std::string>();
}

void printApplication(const DoctorReport& report) {
    line(report.application->name) << report.application->program;
    if (report.examination.problem.empty()) {
        printFindings(report.examination);
        return;
    }
    line("") << "! " << report.examination.problem;
    for (const auto& words : report.examination.lastWords)
        line("") << "  " << words;
}

} // namespace

void printText(const DoctorReport& report) {
    printVistrel(report);
    line("GNUstep") << joined(report.gnustep);
    line("System") << joined(report.system);
    printDisplay(report.display);
    printSettings(report.settings);
    if (report.application)
        printApplication(report);
    std::cout << '\n';
}

} // namespace vistrel::tool
