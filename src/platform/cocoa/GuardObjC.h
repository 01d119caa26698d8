#pragma once

#include <functional>

namespace vistrel::cocoa {

/// Runs `action` and stops Objective-C exceptions. This and the handling of C++ exceptions are kept
/// in files of their own, because on the GNU runtime one function cannot catch both.
void runGuardedFromObjectiveC(const std::function<void()>& action);

/// Says in the host's log that an exception was stopped.
void logStopped(const char* what) noexcept;

} // namespace vistrel::cocoa
