#include "tool/EnabledText.h"

#include "tool/ValueText.h"

namespace vistrel::tool {

std::string enabledText(const LoadingDefaults& defaults) {
    if (loadsByDefault(defaults)) {
        const auto off = applicationsThatLoad(defaults, false);
        return "Vistrel is enabled for all applications" +
               (off.empty() ? "." : " but " + enumeration(off) + ".");
    }
    const auto on = applicationsThatLoad(defaults, true);
    if (on.empty())
        return "Vistrel is not enabled.";
    return "Vistrel is enabled for " + enumeration(on) + " only.";
}

std::string changeText(const Change& change) {
    return change.domain + " " + std::string(change.key) + ": " + valueText(change.before) +
           " -> " + valueText(change.after);
}

std::string enumeration(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t index = 0; index < names.size(); ++index) {
        if (index > 0)
            text += index + 1 == names.size() ? " and " : ", ";
        text += names[index];
    }
    return text;
}

} // namespace vistrel::tool
