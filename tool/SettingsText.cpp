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

Json toJson(const std::vector<ReportedSetting>& settings) {
    auto list = Json::array();
    for (const auto& setting : settings) {
        Json line{{"key", setting.key}, {"value", nullptr}, {"type", nullptr}};
        if (setting.value) {
            line["value"] = tool::toJson(*setting.value);
            line["type"] = typeName(*setting.value);
        }
        if (setting.effective)
            line["effective"] = tool::toJson(*setting.effective);
        line["meaning"] = setting.meaning;
        line["flags"] = setting.flags;
        list.push_back(std::move(line));
    }
    return list;
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

std::string_view stateName(SettingsFile::State state) {
    constexpr std::array<std::string_view, 3> names{"absent", "read", "unreadable"};
    return names.at(static_cast<std::size_t>(state));
}

} // namespace

void printFile(const SettingsReport& report) {
    std::cout << "For all applications: " << report.file.path << '\n'
              << stateText(report.file) << '\n';
    printSettings(report.forAll);
}

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

Json toJson(const SettingsReport& report) {
    Json json{{"file",
               {{"path", report.file.path},
                {"state", stateName(report.file.state)},
                {"problem", report.file.problem},
                {"settings", toJson(report.forAll)}}}};
    json["domains"] = Json::array();
    for (const auto& [name, problem, settings] : report.domains)
        json["domains"].push_back(
            {{"name", name}, {"problem", problem}, {"settings", toJson(settings)}});
    return json;
}

} // namespace vistrel::tool
