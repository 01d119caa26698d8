#pragma once

#include <cstddef>

namespace vistrel {

/// How often this program has allocated memory so far. Whatever links this has its allocation
/// functions replaced.
std::size_t allocationsSoFar();

} // namespace vistrel
