#include "tool/DoctorReport.h"
#include "tool/ReportJson.h"
#include "tool/Version.h"

namespace vistrel::tool {

namespace {

Json toJson(const std::vector<Component>& components) {
    auto list = Json::array();
    for (const auto& [name, number] : components)
        list.push_back({{"name", name}, {"version", number}});
    return list;
}

Json toJson(const DisplayReport& display) {
    Json json{{"name", display.name}, {"problem", display.problem}};
    json["monitors"] = Json::array();
    for (const auto& monitor : display.monitors) {
        json["monitors"].push_back(
            {{"name", monitor.name},
             {"frame", {monitor.x, monitor.y, monitor.width, monitor.height}},
             {"primary", monitor.isPrimary}});
    }
    json["windowManager"] = display.windowManager;
    json["ewmh"] = {{"announced", display.hasManager}, {"missing", display.missingHints}};
    return json;
}

Json orNull(const std::optional<std::string>& text) {
    return text ? Json(*text) : Json();
}

Json toJson(const Examination& examination) {
    if (!examination.problem.empty())
        return {{"problem", examination.problem}, {"lastWords", examination.lastWords}};
    Json json{{"vistrel", orNull(examination.vistrel)},
              {"windowsMenu", orNull(examination.windowsMenu)},
              {"foundMenu", orNull(examination.foundMenu)},
              {"zoomItem", orNull(examination.zoomItem)},
              {"screens", examination.screens},
              {"backEnd", orNull(examination.backEnd)}};
    json["settings"] = Json::object();
    for (const auto& [key, value] : examination.settings)
        json["settings"][key] = Json::parse(value);
    json["block"] = Json::array();
    for (const auto position : ourPositions(examination.windowMenu))
        json["block"].push_back(
            {{"position", position}, {"title", examination.windowMenu[position].title}});
    json["collisions"] = Json::array();
    for (const auto& [ours, theirs, keys, theirsWins] : examination.collisions)
        json["collisions"].push_back(
            {{"ours", ours}, {"theirs", theirs}, {"keys", keys}, {"theirsWins", theirsWins}});
    return json;
}

} // namespace

void printJson(const DoctorReport& report) {
    Json json{{"program", report.program}, {"version", version}};
    json["status"] = tool::toJson(report.status);
    json["gnustep"] = toJson(report.gnustep);
    json["system"] = toJson(report.system);
    json["display"] = toJson(report.display);
    json["settings"] = tool::toJson(report.settings);
    if (report.application) {
        json["application"] = {{"name", report.application->name},
                               {"program", report.application->program}};
        json["application"].update(toJson(report.examination));
    }
    print(json);
}

} // namespace vistrel::tool
