#pragma once

#include <cstdint>

namespace vistrel {

/// Keys of window levels, kCGNormalWindowLevelKey and kCGFloatingWindowLevelKey (CGWindowLevel.h).
/// What level a key stands for is the platform's to say.
inline constexpr std::int32_t normalWindowLevelKey = 4;
inline constexpr std::int32_t floatingWindowLevelKey = 5;

} // namespace vistrel
