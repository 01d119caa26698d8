#include "tool/Installation.h"

#include "platform/posix/PropertyListFile.h"
#include "tool/InstalledFolders.h"

#include <array>
#include <filesystem>
#include <system_error>

namespace vistrel::tool {

namespace {

namespace fs = std::filesystem;

bool isFile(const fs::path& path) {
    std::error_code error;
    return fs::is_regular_file(path, error);
}

std::string versionIn(const fs::path& information) {
    const auto values = posix::readPropertyListFile(information);
    const auto* version = values ? values->find("CFBundleShortVersionString") : nullptr;
    const auto* text = version != nullptr ? std::get_if<std::string>(version) : nullptr;
    return text != nullptr ? *text : "";
}

std::optional<Installation> installationIn(const fs::path& folder) {
    std::error_code error;
    const auto path = fs::canonical(folder, error);
    if (error)
        return std::nullopt;
    Installation found{.folder = path,
                       .vistrel = bundleAt(path / "Vistrel.bundle"),
                       .loader = bundleAt(path / "VistrelLoader.bundle"),
                       .doctor = bundleAt(path / "VistrelDoctor.bundle")};
    return found.vistrel && found.loader ? std::optional(found) : std::nullopt;
}

} // namespace

std::optional<InstalledBundle> bundleAt(const std::string& path) {
    const fs::path folder(path);
    if (!isFile(folder / folder.stem()))
        return std::nullopt;
    return InstalledBundle{.path = path,
                           .version = versionIn(folder / "Resources/Info-gnustep.plist")};
}

std::optional<Installation> findInstallation(const std::string& program,
                                             const std::string& folder) {
    if (!folder.empty())
        return installationIn(folder);
    const auto above = fs::path(program).parent_path().parent_path();
    for (const auto* relative : {"bundles", installedBundles})
        if (auto found = installationIn(above / relative))
            return found;
    return std::nullopt;
}

std::string ownProgram() {
    std::error_code error;
    return fs::read_symlink("/proc/self/exe", error);
}

} // namespace vistrel::tool
