#pragma once

#include <cstdint>

namespace vistrel {

/// NSWindowCollectionBehaviorFullScreenPrimary (NSWindow.h): the window may enter the system's own
/// full-screen mode.
inline constexpr std::uint64_t fullScreenPrimary = 1U << 7U;

} // namespace vistrel
