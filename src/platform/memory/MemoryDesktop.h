#pragma once

#include "core/PropertyList.h"
#include "core/Rect.h"
#include "platform/memory/MemoryClock.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vistrel::memory {

/// What the hosts of one user share: files, screens and time.
struct MemoryDesktop {
    std::string home = "/home/user";
    /// Folders that exist. A folder in `unwritable` can be neither made nor written into.
    std::set<std::string> folders = {home};
    std::set<std::string> unwritable;
    /// Property-list files by their path; nullopt is a file that is no property list.
    std::map<std::string, std::optional<PropertyList>> files;
    /// The frames of the attached screens, the main one first.
    std::vector<Rect> screens = {{.x = 0, .y = 0, .width = 1440, .height = 900}};
    MemoryClock clock;
};

} // namespace vistrel::memory
