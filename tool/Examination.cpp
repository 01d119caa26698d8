#include "tool/Examination.h"

#include "tool/BoundedProcess.h"
#include "tool/Json.h"
#include "tool/SettingsTable.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace vistrel::tool {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostLastWords = 6;

/// A folder of this process' own, which goes with it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::error_code error;
        auto name = (fs::temp_directory_path(error) / "vistrel-XXXXXX").string();
        if (::mkdtemp(name.data()) != nullptr)
            path_ = name;
    }

    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    TemporaryFolder(TemporaryFolder&&) = delete;
    TemporaryFolder& operator=(TemporaryFolder&&) = delete;

    ~TemporaryFolder() {
        std::error_code error;
        if (!path_.empty())
            fs::remove_all(path_, error);
    }

    /// Empty when it could not be made.
    [[nodiscard]] const fs::path& path() const { return path_; }

  private:
    fs::path path_;
};

std::optional<std::string> text(const Json& object, const char* key) {
    const auto value = object.find(key);
    if (value == object.end() || !value->is_string())
        return std::nullopt;
    return value->get<std::string>();
}

std::vector<MenuRow> rows(const Json& items) {
    std::vector<MenuRow> menu;
    for (const auto& item : items) {
        menu.push_back({.title = text(item, "title").value_or(""),
                        .isSeparator = item.value("separator", false),
                        .shortcut = {.key = text(item, "key").value_or(""),
                                     .mask = item.value("mask", ModifierMask{0})},
                        .isOurs = item.value("ours", false),
                        .items = rows(item.at("items"))});
    }
    return menu;
}

Examination understood(const Json& findings) {
    Examination examination{.vistrel = text(findings, "vistrel"),
                            .windowsMenu = text(findings, "windowsMenu"),
                            .foundMenu = text(findings, "foundMenu"),
                            .zoomItem = text(findings, "zoomItem"),
                            .windowMenu = rows(findings.at("windowItems")),
                            .collisions = collisions(rows(findings.at("mainMenu"))),
                            .screens = findings.at("screens"),
                            .backEnd = text(findings, "backEnd")};
    const auto& values = findings.at("defaults");
    for (const auto& setting : knownSettings())
        if (const auto value = values.find(setting.key); value != values.end())
            examination.settings.emplace_back(setting.key, value->dump());
    return examination;
}

std::vector<std::string> command(const Application& application, const Installation& installation,
                                 const LoadingDefaults& defaults, const std::string& report) {
    std::vector<std::string> keys;
    // VTREnabled is what this start says, whatever is stored.
    for (const auto& setting : knownSettings())
        if (setting.key != enabledKey)
            keys.emplace_back(setting.key);
    std::vector<std::string> arguments{application.program};
    for (const auto& argument : launchArguments(
             defaults, application.name, installation.loader->path, {installation.doctor->path}))
        arguments.push_back(argument);
    for (const auto& argument : {std::string("-VTRDoctorReport"), report,
                                 std::string("-VTRDoctorSettings"), argumentArray(keys)})
        arguments.push_back(argument);
    return arguments;
}

std::string whyNothing(const std::optional<ProcessEnd>& end, std::chrono::seconds limit) {
    if (!end)
        return "It could not be started.";
    if (end->isOverdue)
        return "It did not finish launching within " + std::to_string(limit.count()) +
               " s and was ended.";
    if (!end->code)
        return "It was ended by signal " + std::to_string(end->signal) + ".";
    return "It ended by itself, with code " + std::to_string(*end->code) +
           ", before it had launched.";
}

std::vector<std::string> lastLines(const fs::path& log) {
    std::vector<std::string> lines;
    std::ifstream file(log);
    for (std::string line; std::getline(file, line);) {
        lines.push_back(line);
        if (lines.size() > mostLastWords)
            lines.erase(lines.begin());
    }
    return lines;
}

} // namespace

Examination examine(const Application& application, const Installation& installation,
                    const LoadingDefaults& defaults, std::chrono::seconds limit) {
    if (!installation.doctor)
        return {.problem = "The bundle VistrelDoctor.bundle is missing."};
    const TemporaryFolder folder;
    if (folder.path().empty())
        return {.problem = "There is no place for temporary files."};
    const auto report = folder.path() / "report.json";
    const auto log = folder.path() / "log";
    const auto end = runBounded(command(application, installation, defaults, report), log, limit);
    std::ifstream file(report);
    const auto findings = Json::parse(file, nullptr, false);
    if (!findings.is_object())
        return {.problem = whyNothing(end, limit), .lastWords = lastLines(log)};
    if (findings.contains("problem"))
        return {.problem = text(findings, "problem").value_or(""), .lastWords = lastLines(log)};
    return understood(findings);
}

} // namespace vistrel::tool
