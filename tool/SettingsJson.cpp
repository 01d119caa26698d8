#include "tool/ReportJson.h"
#include "tool/SettingsText.h"
#include "tool/ValueText.h"

#include <array>

namespace vistrel::tool {

namespace {

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

std::string_view stateName(SettingsFile::State state) {
    constexpr std::array<std::string_view, 3> names{"absent", "read", "unreadable"};
    return names.at(static_cast<std::size_t>(state));
}

} // namespace

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

void printJson(const SettingsReport& report) {
    print(toJson(report));
}

} // namespace vistrel::tool
