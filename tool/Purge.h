#pragma once

#include "tool/DefaultsStore.h"

#include <vector>

namespace vistrel::tool {

/// The changes that take all settings of Vistrel out of the applications' defaults: the copies of
/// those of the file, and each application's own.
///
/// Only where Vistrel has run. Most of its settings have plain names, and an application that has
/// never had it may use one of them for itself.
std::vector<Change> purge(const StoredDefaults& stored);

} // namespace vistrel::tool
