#pragma once

#include <optional>
#include <string>

namespace vistrel::tool {

/// A bundle on disk.
struct InstalledBundle {
    std::string path;
    /// As its Info.plist says. Empty when it does not, or cannot be read.
    std::string version;
};

/// The bundle at `path`, or nullopt when there is none with the program of its name.
std::optional<InstalledBundle> bundleAt(const std::string& path);

/// The bundles that belong to this tool.
struct Installation {
    /// The absolute path of the folder that they are in.
    std::string folder;
    std::optional<InstalledBundle> vistrel;
    std::optional<InstalledBundle> loader;
    /// What `doctor` has loaded into an application.
    std::optional<InstalledBundle> doctor;
};

/// Looks in `folder`, or, when it is empty, where the bundles are relative to the program at the
/// path `program`: in the folder "bundles" beside that of the program, as in a build, or where both
/// are installed. nullopt when Vistrel or its loader is missing.
std::optional<Installation> findInstallation(const std::string& program, const std::string& folder);

/// What to tell the user then.
inline constexpr auto noInstallation =
    "the bundles Vistrel.bundle and VistrelLoader.bundle are not where this program expects them. "
    "Install it again, or say where they are with --bundles.";

/// The path of the running program, without symbolic links.
std::string ownProgram();

} // namespace vistrel::tool
