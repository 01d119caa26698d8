#include "tool/DoctorReport.h"
#include "tool/EnabledText.h"
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
    std::cout << std::left << std::setw(12) << "Vistrel"
              << "vistrel " << version << ", " << report.program;
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
                 << monitor.x << ", " << monitor.y << ")" << (monitor.isPrimary ? ", primary" : "");
    if (!display.hasManager) {
        line("Windows") << "no window manager that follows the EWMH";
        return;
    }
    line("Windows") << (display.windowManager.empty() ? "a manager without a name"
                                                      : display.windowManager)
                    << (display.missingHints.empty()
                            ? ", EWMH as needed"
                            : ", EWMH without " + enumeration(display.missingHints));
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
    for (const auto position : positions) {
        line("") << std::right << std::setw(4) << position << "  " << std::left
                 << menu[position].title
                 << (menu[position].shortcut.key.empty()
                         ? ""
                         : "  " + shortcutText(menu[position].shortcut));
    }
}

std::string titleText(const std::optional<std::string>& title, const std::string& what) {
    return title ? what + " \"" + *title + "\"" : "no " + what;
}

void printFindings(const Examination& found) {
    line("") << (found.vistrel ? "Vistrel is installed in it."
                               : "Vistrel could not be loaded into it.");
    line("") << titleText(found.windowsMenu, "Window menu") << ", "
             << titleText(found.zoomItem, "Zoom item");
    if (found.vistrel && found.foundMenu != found.windowsMenu)
        line("") << "! Vistrel finds " << titleText(found.foundMenu, "Window menu");
    if (found.vistrel && found.windowsMenu)
        printWindowMenu(found);
    for (const auto& [ours, theirs, keys, theirsWins] : found.collisions)
        line("") << "! " << keys << " is both \"" << ours << "\" and \"" << theirs << "\"; "
                 << (theirsWins ? "the application's own item gets it" : "Vistrel's item gets it");
    if (found.vistrel && found.collisions.empty())
        line("") << "no shortcut of Vistrel's is one of the application's";
    for (const auto& [x, y, width, height] : found.screens)
        line("") << "screen " << width << "x" << height << " at (" << x << ", " << y
                 << ") from the lower left";
    line("") << "back end " << found.backEnd.value_or("unknown");
    line("") << "its own values of the settings:";
    for (const auto& [key, value] : found.settings)
        line("") << "  " << key << " = " << value;
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
