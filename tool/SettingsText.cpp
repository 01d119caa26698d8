#include "tool/SettingsText.h"

#include "tool/Enabling.h"
#include "tool/ValueText.h"

#include <iostream>

namespace vistrel::tool {

namespace {

void printSettings(const std::vector<ReportedSetting>& settings) {
    for (const auto& [key, value, effective, meaning, flags] : settings) {
        std::cout << "  " << key;
        if (value)
            std::cout << " = " << valueText(*value) << " (" << typeName(*value) << ")";
        else if (effective)
            std::cout << " = " << valueText(*effective) << " (not stored)";
        std::cout << "\n      " << meaning << '\n';
        for (const auto& flag : flags)
            std::cout << "    ! " << flag << '\n';
    }
}

std::string stateText(const SettingsFile& file) {
    switch (file.state) {
    case SettingsFile::State::absent:
        return "There is no such file. Without one, this holds:";
    case SettingsFile::State::read:
        return "It holds:";
    case SettingsFile::State::unreadable:
        return "It cannot be read, so everything in it counts as 0 and no. " + file.problem;
    }
    return {};
}

void printFile(const SettingsReport& report) {
    std::cout << "For all applications: " << report.file.path << '\n'
              << stateText(report.file) << '\n';
    printSettings(report.forAll);
}

} // namespace

void printText(const SettingsReport& report) {
    printFile(report);
    for (const auto& [name, problem, settings] : report.domains) {
        std::cout << '\n';
        if (name == globalDomain)
            std::cout << "For applications without a value of their own (" << name << "):\n";
        else
            std::cout << name << ":\n";
        if (!problem.empty())
            std::cout << "    ! Its defaults cannot be read: " << problem << '\n';
        else if (settings.empty())
            std::cout << "  No setting of Vistrel's.\n";
        printSettings(settings);
    }
}

} // namespace vistrel::tool
