#pragma once

#include <functional>

namespace vistrel::cocoa {

/// Runs `action`, which an application of somebody else has called, and lets no exception out,
/// neither C++ nor Objective-C. What was thrown is written to the log in one line.
void runGuarded(const std::function<void()>& action) noexcept;

} // namespace vistrel::cocoa
