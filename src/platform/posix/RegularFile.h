#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vistrel::posix {

/// The bytes of a regular file, or of the one that a symbolic link leads to. nullopt for anything
/// else, for a file of more than `limit` bytes, and when it cannot be read. Never waits for a
/// writer, as reading a pipe would.
std::optional<std::string> readRegularFile(const std::string& path, std::size_t limit);

/// Replaces the content of the file at `path` in one step: whoever reads it, and wherever this is
/// interrupted, finds the old content or the new one, whole. The new content has reached the disk
/// when this answers true. A symbolic link stays and its target is written; an existing file keeps
/// its permissions and a new one is for its user alone. On failure the old file is as it was and
/// nothing is left behind; what a killed writer leaves behind is taken up by the next one.
bool replaceFile(const std::string& path, std::string_view content);

} // namespace vistrel::posix
