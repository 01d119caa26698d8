#pragma once

#include "core/PropertyList.h"

#include <cstdint>
#include <map>
#include <optional>
#include <set>
#include <string>

namespace vistrel::memory {

/// What the hosts of one user share: files and screens.
struct MemoryDesktop {
    std::string home = "/home/user";
    /// Folders that exist. A folder in `unwritable` can be neither made nor written into.
    std::set<std::string> folders = {home};
    std::set<std::string> unwritable;
    /// Property-list files by their path; nullopt is a file that is no property list.
    std::map<std::string, std::optional<PropertyList>> files;
    std::int32_t screenCount = 1;
};

} // namespace vistrel::memory
