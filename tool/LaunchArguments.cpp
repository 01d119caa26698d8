#include "tool/LaunchArguments.h"

namespace vistrel::tool {

std::string argumentArray(const std::vector<std::string>& texts) {
    std::string array;
    for (const auto& text : texts) {
        array += array.empty() ? "\"" : ", \"";
        for (const char c : text) {
            if (c == '"' || c == '\\')
                array += '\\';
            array += c;
        }
        array += '"';
    }
    return "(" + array + ")";
}

std::vector<std::string> launchArguments(const LoadingDefaults& defaults,
                                         std::string_view application, const std::string& loader,
                                         const std::vector<std::string>& more) {
    std::vector<std::string> bundles;
    for (const auto& bundle : bundlesFor(defaults, application)) {
        if (const auto* path = std::get_if<std::string>(&bundle);
            path != nullptr && !isLoader(bundle))
            bundles.push_back(*path);
    }
    bundles.push_back(loader);
    bundles.insert(bundles.end(), more.begin(), more.end());
    return {"-" + std::string(bundlesKey), argumentArray(bundles), "-" + std::string(enabledKey),
            "YES"};
}

} // namespace vistrel::tool
