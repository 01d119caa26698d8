#include "tool/ReportJson.h"

namespace vistrel::tool {

Json toJson(const StatusReport& status) {
    Json report;
    report["installed"] = nullptr;
    if (status.installation)
        report["installed"] = {{"folder", status.installation->folder},
                               {"version", status.installation->vistrel->version}};
    report["enabled"] = loadsByDefault(status.defaults)                        ? "all"
                        : !applicationsThatLoad(status.defaults, true).empty() ? "named"
                                                                               : "off";
    report["applications"] = Json::array();
    for (const auto& [name, loads, reason] : status.named)
        report["applications"].push_back({{"name", name}, {"loads", loads}, {"reason", reason}});
    report["otherLoaders"] = status.otherLoaders;
    report["unreadable"] = status.defaults.unreadable;
    report["running"] = Json::array();
    for (const auto& loaded : status.running) {
        report["running"].push_back({{"pid", loaded.process},
                                     {"name", loaded.name},
                                     {"path", loaded.path},
                                     {"version", loaded.version},
                                     {"difference", difference(loaded, status.installation)}});
    }
    return report;
}

void printJson(const StatusReport& status) {
    print(toJson(status));
}

} // namespace vistrel::tool
