#pragma once

#include "core/PropertyList.h"

#include <cstddef>
#include <optional>
#include <string>

namespace vistrel::posix {

/// 1 MiB: no file of settings comes near it.
inline constexpr std::size_t largestPropertyListFile = 1U << 20U;

/// Reads an XML property list whose root is a dictionary. nullopt for everything else: what is no
/// regular file, is larger than largestPropertyListFile, is not whole, or has another root.
std::optional<Dictionary> readPropertyListFile(const std::string& path);

/// Writes `dictionary` as an XML property list, whole and atomically. A failure is silent and
/// leaves the old file.
void writePropertyListFile(const Dictionary& dictionary, const std::string& path);

} // namespace vistrel::posix
