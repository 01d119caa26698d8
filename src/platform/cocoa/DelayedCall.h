#pragma once

#include <functional>

namespace vistrel::cocoa {

/// Calls `call` once, `seconds` from now, from the default mode of the main run loop. No exception
/// of the call reaches the run loop.
void performLater(double seconds, std::function<void()> call);

} // namespace vistrel::cocoa
