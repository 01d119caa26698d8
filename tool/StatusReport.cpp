#include "tool/StatusReport.h"

#include <algorithm>

namespace vistrel::tool {

namespace {

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

} // namespace

StatusReport statusReport(const std::optional<Installation>& installation,
                          const LoadingDefaults& defaults, std::vector<LoadedBundle> running) {
    StatusReport status{
        .installation = installation, .defaults = defaults, .running = std::move(running)};
    const auto own = bundlePath(installation ? installation->loader->path : "");
    for (const auto& [name, values] : defaults.domains) {
        if (name != globalDomain)
            if (auto found = named(defaults, name))
                status.named.push_back(std::move(*found));
        for (const auto& path : loadersFor(defaults, name))
            if (bundlePath(path) != own && std::ranges::count(status.otherLoaders, path) == 0)
                status.otherLoaders.push_back(path);
    }
    return status;
}

std::string difference(const LoadedBundle& loaded, const std::optional<Installation>& installed) {
    if (loaded.isReplaced)
        return "the bundle has been replaced since; start it again";
    if (installed && loaded.version != installed->vistrel->version)
        return "not the installed version";
    if (installed && bundlePath(loaded.path) != bundlePath(installed->vistrel->path))
        return "another copy";
    return {};
}

} // namespace vistrel::tool
