#include "tool/Enabling.h"

namespace vistrel::tool {

LoadingValues valuesOf(const LoadingDefaults& defaults, std::string_view domain) {
    const auto position = defaults.domains.find(domain);
    return position == defaults.domains.end() ? LoadingValues{} : position->second;
}

std::filesystem::path bundlePath(const std::string& path) {
    const auto normal = std::filesystem::path(path).lexically_normal();
    return normal.has_filename() ? normal : normal.parent_path();
}

bool isLoader(const PropertyList& path) {
    const auto* text = std::get_if<std::string>(&path);
    return text != nullptr && bundlePath(*text).filename() == loaderName;
}

Array bundlesFor(const LoadingDefaults& defaults, std::string_view application) {
    for (const auto domain : {application, globalDomain}) {
        const auto bundles = valuesOf(defaults, domain).bundles;
        if (!bundles)
            continue;
        const auto* list = std::get_if<Array>(&*bundles);
        return list != nullptr ? *list : Array{};
    }
    return defaults.systemBundles;
}

std::vector<std::string> loadersFor(const LoadingDefaults& defaults, std::string_view application) {
    std::vector<std::string> loaders;
    for (const auto& bundle : bundlesFor(defaults, application))
        if (isLoader(bundle))
            loaders.push_back(std::get<std::string>(bundle));
    return loaders;
}

bool isSwitchedOff(const LoadingValues& values) {
    return values.enabled && !boolValue(&*values.enabled);
}

bool isSwitchedOn(const LoadingValues& values) {
    return values.enabled && boolValue(&*values.enabled);
}

bool loadsByDefault(const LoadingDefaults& defaults) {
    return loads(defaults, globalDomain);
}

bool loads(const LoadingDefaults& defaults, std::string_view application) {
    const auto own = valuesOf(defaults, application);
    return !loadersFor(defaults, application).empty() &&
           !isSwitchedOff(own.enabled ? own : valuesOf(defaults, globalDomain));
}

std::vector<std::string> applicationsThatLoad(const LoadingDefaults& defaults, bool load) {
    std::vector<std::string> names;
    for (const auto& [name, values] : defaults.domains)
        if (name != globalDomain && loads(defaults, name) == load)
            names.push_back(name);
    return names;
}

std::vector<std::string> applicationsSwitchedOff(const LoadingDefaults& defaults) {
    std::vector<std::string> names;
    for (const auto& [name, values] : defaults.domains)
        if (name != globalDomain && isSwitchedOff(values))
            names.push_back(name);
    return names;
}

} // namespace vistrel::tool
