#pragma once

#include <string>
#include <vector>

namespace vistrel::tool {

/// The names of the shared libraries that the program at `path` asks for itself, such as
/// "libgnustep-gui.so.0.29". Empty for a file that is no program of this machine's kind.
std::vector<std::string> neededLibraries(const std::string& path);

} // namespace vistrel::tool
