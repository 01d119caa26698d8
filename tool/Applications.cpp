#include "tool/Applications.h"

#include "tool/Enabling.h"
#include "tool/NeededLibraries.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <unistd.h>

namespace vistrel::tool {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view suffix = ".app";

bool isProgram(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error) && ::access(path.c_str(), X_OK) == 0;
}

std::string withoutSuffix(std::string name) {
    if (name.size() > suffix.size() && name.ends_with(suffix))
        name.resize(name.size() - suffix.size());
    return name;
}

std::optional<Application> atProgram(const fs::path& path) {
    std::error_code error;
    const auto program = fs::canonical(path, error);
    if (error || !isProgram(program))
        return std::nullopt;
    return Application{.name = program.filename(), .program = program};
}

/// An .app folder, or the program in it.
std::optional<Application> atPath(const fs::path& path) {
    std::error_code error;
    if (!fs::is_directory(path, error))
        return atProgram(path);
    const auto folder = fs::canonical(path, error);
    return atProgram(folder / withoutSuffix(folder.filename()));
}

} // namespace

std::optional<Application> findApplication(const std::string& nameOrPath,
                                           const ApplicationPlaces& places) {
    if (nameOrPath.empty())
        return std::nullopt;
    if (nameOrPath.find('/') != std::string::npos)
        return atPath(nameOrPath);
    const auto name = withoutSuffix(nameOrPath);
    for (const auto& folder : places.folders)
        if (auto found = atProgram(fs::path(folder) / (name + std::string(suffix)) / name))
            return found;
    for (const auto& folder : places.programs)
        if (auto found = atProgram(fs::path(folder) / name))
            return found;
    return std::nullopt;
}

bool isCocoa(const Application& application) {
    return std::ranges::any_of(
        neededLibraries(application.program),
        [](const std::string& library) { return library.starts_with("libgnustep-gui.so"); });
}

FoundApplication findCocoaApplication(const std::string& nameOrPath,
                                      const ApplicationPlaces& places) {
    auto found = findApplication(nameOrPath, places);
    std::error_code error;
    const bool isPath = nameOrPath.find('/') != std::string::npos;
    if (!found && !(isPath && fs::exists(nameOrPath, error)))
        return {.problem = "there is no application " + nameOrPath +
                           ". Debian's are in packages such as textedit.app and gnustep-examples."};
    if (!found || !isCocoa(*found))
        return {.problem = nameOrPath + " is no Cocoa application."};
    return {.found = std::move(found)};
}

std::optional<std::string> processName(const std::string& nameOrPath) {
    const bool isPath = nameOrPath.find('/') != std::string::npos;
    if (isPath)
        if (const auto found = atPath(nameOrPath))
            return found->name;
    const auto last = bundlePath(nameOrPath).filename().string();
    const auto name = withoutSuffix(last);
    if (name.empty() || name.starts_with('.') || name == globalDomain || (isPath && name == last))
        return std::nullopt;
    return name;
}

} // namespace vistrel::tool
