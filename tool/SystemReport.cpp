#include "tool/SystemReport.h"

#include "tool/NeededLibraries.h"
#include "tool/UserDefaultsStore.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <link.h>
#include <sys/utsname.h>

namespace vistrel::tool {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view base = "libgnustep-base.so";
constexpr std::string_view gui = "libgnustep-gui.so";

/// What stands behind ".so." in the name of the file that the links lead to.
std::string versionOf(const fs::path& library) {
    std::error_code error;
    const auto name = fs::canonical(library, error).filename().string();
    const auto position = name.find(".so.");
    return error || position == std::string::npos ? "" : name.substr(position + 4);
}

/// The path of the Foundation that this program itself runs on.
fs::path loadedBase() {
    fs::path path;
    ::dl_iterate_phdr(
        [](dl_phdr_info* info, std::size_t /*size*/, void* result) {
            const fs::path library(info->dlpi_name);
            if (!library.filename().native().starts_with(base))
                return 0;
            *static_cast<fs::path*>(result) = library;
            return 1;
        },
        &path);
    return path;
}

std::string distribution() {
    std::ifstream file("/etc/os-release");
    constexpr std::string_view key = "PRETTY_NAME=";
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with(key)) {
            line.erase(0, key.size());
            std::erase(line, '"');
            return line;
        }
    }
    return "unknown";
}

} // namespace

std::vector<Component> reportGNUstep(const std::string& program) {
    const auto library = loadedBase();
    std::vector<Component> components{{"base", versionOf(library)}};
    const auto needed = neededLibraries(program);
    const auto found =
        std::ranges::find_if(needed, [](const std::string& name) { return name.starts_with(gui); });
    components.push_back(
        {"gui", found == needed.end() ? "" : versionOf(library.parent_path() / *found)});
    for (auto& backEnd : backEnds())
        components.push_back(std::move(backEnd));
    return components;
}

std::vector<Component> reportSystem() {
    utsname kernel{};
    ::uname(&kernel);
    return {{distribution(), ""},
            {&kernel.sysname[0], std::string(&kernel.release[0]) + " " + &kernel.machine[0]}};
}

} // namespace vistrel::tool
