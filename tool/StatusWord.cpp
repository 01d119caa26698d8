#include "tool/EnabledText.h"
#include "tool/ExitCode.h"
#include "tool/Installation.h"
#include "tool/Json.h"
#include "tool/LoadedBundles.h"
#include "tool/UserDefaultsStore.h"
#include "tool/Words.h"

#include <algorithm>
#include <iostream>
#include <unistd.h>

namespace vistrel::tool {

namespace {

/// An application whose own domain says something about Vistrel.
struct NamedApplication {
    std::string name;
    bool loads;
    std::string reason;
};

struct Status {
    std::optional<Installation> installation;
    LoadingDefaults defaults;
    std::vector<NamedApplication> named;
    /// Loaders of other copies that are listed.
    std::vector<std::string> otherLoaders;
    std::vector<LoadedBundle> running;
};

std::optional<NamedApplication> named(const LoadingDefaults& defaults, const std::string& name) {
    const auto own = valuesOf(defaults, name);
    if (isSwitchedOff(own))
        return NamedApplication{name, false, "switched off by name"};
    if (own.bundles && loadersFor(defaults, name).empty() && loadsByDefault(defaults))
        return NamedApplication{name, false, "its own list of bundles hides the global one"};
    if (isSwitchedOn(own) && loads(defaults, name))
        return NamedApplication{name, true, "switched on by name"};
    if (own.bundles && loads(defaults, name))
        return NamedApplication{name, true, "in its own list of bundles"};
    return std::nullopt;
}

Status collect(const std::string& bundles) {
    Status status{.installation = findInstallation(ownProgram(), bundles),
                  .defaults = loadingDefaults(userDefaults()->read()),
                  .running = loadedBundles("/proc", ::getuid())};
    const auto own = bundlePath(status.installation ? status.installation->loader->path : "");
    for (const auto& [name, values] : status.defaults.domains) {
        if (name != globalDomain)
            if (auto found = named(status.defaults, name))
                status.named.push_back(std::move(*found));
        for (const auto& path : loadersFor(status.defaults, name))
            if (bundlePath(path) != own && std::ranges::find(status.otherLoaders, path) ==
                                               status.otherLoaders.end())
                status.otherLoaders.push_back(path);
    }
    return status;
}

std::string versionText(const std::string& version) {
    return version.empty() ? "of unknown version" : "version " + version;
}

/// What is different from the bundle that is installed, or empty.
std::string difference(const LoadedBundle& loaded, const std::optional<Installation>& installed) {
    if (loaded.isReplaced)
        return "the bundle has been replaced since; start it again";
    if (installed && loaded.version != installed->vistrel->version)
        return "not the installed version";
    if (installed && bundlePath(loaded.path) != bundlePath(installed->vistrel->path))
        return "another copy";
    return {};
}

void printText(const Status& status) {
    if (status.installation)
        std::cout << "Installed in " << status.installation->folder << ", "
                  << versionText(status.installation->vistrel->version) << ".\n";
    else
        std::cout << "Not installed: " << noInstallation << '\n';
    std::cout << enabledText(status.defaults) << '\n';
    for (const auto& [name, loads, reason] : status.named)
        std::cout << "  " << name << ": " << (loads ? "on" : "off") << ", " << reason << '\n';
    for (const auto& path : status.otherLoaders)
        std::cout << "The loader of another copy is listed: " << path << '\n';
    for (const auto& [domain, reason] : status.defaults.unreadable)
        std::cout << "The defaults of " << domain << " cannot be read: " << reason << '\n';
    std::cout << (status.running.empty() ? "No running application of yours has it.\n"
                                         : "Running applications that have it:\n");
    for (const auto& loaded : status.running) {
        const auto different = difference(loaded, status.installation);
        std::cout << "  " << loaded.process << " " << loaded.name << ": "
                  << versionText(loaded.version) << ", " << loaded.path
                  << (different.empty() ? "" : " (" + different + ")") << '\n';
    }
}

void printJson(const Status& status) {
    Json report;
    report["installed"] = nullptr;
    if (status.installation)
        report["installed"] = {{"folder", status.installation->folder},
                               {"version", status.installation->vistrel->version}};
    report["enabled"] = loadsByDefault(status.defaults)                      ? "all"
                        : !applicationsThatLoad(status.defaults, true).empty() ? "named"
                                                                             : "off";
    report["applications"] = Json::array();
    for (const auto& [name, loads, reason] : status.named)
        report["applications"].push_back({{"name", name}, {"loads", loads}, {"reason", reason}});
    report["otherLoaders"] = status.otherLoaders;
    report["unreadable"] = status.defaults.unreadable;
    report["running"] = Json::array();
    for (const auto& loaded : status.running)
        report["running"].push_back({{"pid", loaded.process},
                                     {"name", loaded.name},
                                     {"path", loaded.path},
                                     {"version", loaded.version},
                                     {"difference", difference(loaded, status.installation)}});
    print(report);
}

} // namespace

int status(const StatusOptions& options, const std::string& bundles) {
    const auto collected = collect(bundles);
    if (options.json)
        printJson(collected);
    else
        printText(collected);
    return exitcode::done;
}

} // namespace vistrel::tool
