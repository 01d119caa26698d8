#pragma once

#include "core/PropertyList.h"

#include <optional>
#include <string>

namespace vistrel::posix {

/// Reads an XML property list whose root is a dictionary. nullopt for everything else: what is no
/// regular file, is larger than 1 MiB, is not whole, or has another root.
std::optional<Dictionary> readPropertyListFile(const std::string& path);

/// Writes `dictionary` as an XML property list, whole and atomically. A failure is silent and
/// leaves the old file.
void writePropertyListFile(const Dictionary& dictionary, const std::string& path);

} // namespace vistrel::posix
