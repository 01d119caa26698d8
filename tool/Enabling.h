#pragma once

#include "core/PropertyList.h"

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Which of the user's defaults have to change so that applications load Vistrel, or no longer do.
///
/// GNUstep loads the bundles that the default "GSAppKitUserBundles" lists. Like every default it is
/// looked up in the application's own domain first and then in the global one, so an application
/// with a list of its own does not see the global list. The loader that is listed there loads
/// Vistrel unless the default "VTREnabled", looked up in the same way, is there and false.
namespace vistrel::tool {

inline constexpr std::string_view globalDomain = "NSGlobalDomain";
inline constexpr std::string_view bundlesKey = "GSAppKitUserBundles";
inline constexpr std::string_view enabledKey = "VTREnabled";
inline constexpr std::string_view loaderName = "VistrelLoader.bundle";

/// What one domain holds under the two keys. nullopt where it holds nothing.
struct LoadingValues {
    std::optional<PropertyList> bundles = {};
    std::optional<PropertyList> enabled = {};

    friend bool operator==(const LoadingValues&, const LoadingValues&) = default;
};

/// The part of the user's defaults that decides who loads Vistrel.
struct LoadingDefaults {
    /// By the name of the domain: globalDomain, or the name of an application's process.
    std::map<std::string, LoadingValues, std::less<>> domains = {};
    /// The domains that cannot be read, with the reason. They are never changed.
    std::map<std::string, std::string, std::less<>> unreadable = {};
    /// What the system's administrator lists for users without a global list of their own.
    Array systemBundles = {};
};

/// The values of a domain; none for one that does not exist.
LoadingValues valuesOf(const LoadingDefaults& defaults, std::string_view domain);

/// `path` in the one form in which paths of the same bundle are equal, however they are written.
std::filesystem::path bundlePath(const std::string& path);

/// Whether `path` is that of a loader, of this or of another copy of Vistrel.
bool isLoader(const PropertyList& path);

/// The bundles that GNUstep loads into an application: those of its own list, or of the global one
/// when it has none. None when the value that holds for it is no list.
Array bundlesFor(const LoadingDefaults& defaults, std::string_view application);

/// The loaders among them.
std::vector<std::string> loadersFor(const LoadingDefaults& defaults, std::string_view application);

/// Whether VTREnabled is there and false, as the loader reads it.
bool isSwitchedOff(const LoadingValues& values);

/// Whether VTREnabled is there and true.
bool isSwitchedOn(const LoadingValues& values);

/// Whether Vistrel is loaded into applications whose own domains say nothing.
bool loadsByDefault(const LoadingDefaults& defaults);

/// Whether Vistrel is loaded into this application.
bool loads(const LoadingDefaults& defaults, std::string_view application);

/// The applications with a domain of their own into which Vistrel is loaded, or not.
std::vector<std::string> applicationsThatLoad(const LoadingDefaults& defaults, bool load);

/// The applications that are switched off by name, whatever holds for the others.
std::vector<std::string> applicationsSwitchedOff(const LoadingDefaults& defaults);

enum class Switch { on, off };

struct SwitchRequest {
    Switch to = Switch::on;
    /// The names of processes. All applications are meant when there is none.
    std::vector<std::string> applications = {};
};

/// The loader that is to be listed.
struct Loader {
    /// Its absolute path.
    std::string path;
    /// Whether a file exists. Only asked to tell the user about the loaders that are replaced.
    std::function<bool(const std::string&)> exists;
};

/// One value that changes in one domain. nullopt is no value.
struct Change {
    std::string domain;
    std::string_view key;
    std::optional<PropertyList> before;
    std::optional<PropertyList> after;

    friend bool operator==(const Change&, const Change&) = default;
};

/// What a request leads to.
struct SwitchPlan {
    /// In the order in which they are to be made, so that no application starts with Vistrel that
    /// shall not, should one of them fail. Empty when all is as requested already.
    std::vector<Change> changes = {};
    /// The defaults with these changes.
    LoadingDefaults after = {};
    /// What the user should know, a sentence each.
    std::vector<std::string> remarks = {};
    /// Why nothing can be changed, a sentence each. There are no changes then.
    std::vector<std::string> problems = {};
};

SwitchPlan plan(const LoadingDefaults& before, const SwitchRequest& request, const Loader& loader);

} // namespace vistrel::tool
