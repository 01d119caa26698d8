#include "tool/Applications.h"
#include "tool/Console.h"
#include "tool/Words.h"

namespace vistrel::tool {

std::optional<std::vector<std::string>> processNames(const std::vector<std::string>& applications) {
    std::vector<std::string> names;
    for (const auto& application : applications) {
        const auto name = processName(application);
        if (!name) {
            fail("\"" + application + "\" is no name of an application.");
            return std::nullopt;
        }
        names.push_back(*name);
    }
    return names;
}

} // namespace vistrel::tool
