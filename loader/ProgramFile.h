#pragma once

#include <string>

namespace vistrel::loader {

/// Whether the file at `path` is a loadable program of which nothing is missing. A file that was
/// cut off, by a full disk or an installation that is still under way, must not be handed to the
/// system: loading it kills the process.
bool isWholeProgram(const std::string& path);

} // namespace vistrel::loader
