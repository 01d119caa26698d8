#pragma once

#include "core/PropertyList.h"
#include "tool/Enabling.h"

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace vistrel::tool {

/// The user's defaults as they are stored: one dictionary for each application, and the global one.
struct StoredDefaults {
    std::map<std::string, Dictionary, std::less<>> domains = {};
    /// The domains that are there and cannot be read, with the reason.
    std::map<std::string, std::string, std::less<>> unreadable = {};
    /// The bundles that the system's administrator lists for users without a list of their own.
    Array systemBundles = {};
};

/// Where the user's defaults are stored. Applications that are running may change them meanwhile.
class DefaultsStore {
  public:
    DefaultsStore() = default;
    DefaultsStore(const DefaultsStore&) = delete;
    DefaultsStore& operator=(const DefaultsStore&) = delete;
    DefaultsStore(DefaultsStore&&) = delete;
    DefaultsStore& operator=(DefaultsStore&&) = delete;
    virtual ~DefaultsStore() = default;

    /// All that is stored. Changes nothing, on disk either.
    [[nodiscard]] virtual StoredDefaults read() const = 0;

    /// Why nothing at all can be written, or nullopt.
    [[nodiscard]] virtual std::optional<std::string> whyReadOnly() const = 0;

    /// Makes the changes of one domain; everything else in it stays. Answers why that failed, or
    /// nullopt when the new values have reached the disk.
    virtual std::optional<std::string> write(const std::string& domain,
                                             const std::vector<Change>& changes) = 0;
};

/// The part of them that decides who loads Vistrel.
LoadingDefaults loadingDefaults(const StoredDefaults& stored);

/// Makes all changes, in their order. Answers why they were not all made, in one or two sentences,
/// or nullopt. Nothing is changed when it is known beforehand that it cannot be.
std::optional<std::string> apply(const std::vector<Change>& changes, DefaultsStore& store);

} // namespace vistrel::tool
