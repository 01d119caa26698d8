#pragma once

#include <string>
#include <sys/types.h>
#include <vector>

namespace vistrel::tool {

/// A process that has Vistrel in it.
struct LoadedBundle {
    pid_t process = 0;
    /// The name of the process.
    std::string name;
    /// The path of the bundle.
    std::string path;
    /// The version of the bundle at that path. Empty when it cannot be told, also because the
    /// program in memory is no longer the one that is there.
    std::string version;
    /// Whether the program was removed or replaced since it was loaded.
    bool isReplaced = false;
};

/// The processes of `user` that have Vistrel in them, in the order of their numbers, as
/// `processes`, the system's folder "/proc", tells.
std::vector<LoadedBundle> loadedBundles(const std::string& processes, uid_t user);

} // namespace vistrel::tool
