#include "platform/cocoa/Guard.h"

#include "platform/cocoa/GuardObjC.h"

#include <exception>

namespace vistrel::cocoa {

void runGuarded(const std::function<void()>& action) noexcept {
    try {
        runGuardedFromObjectiveC(action);
    } catch (const std::exception& exception) {
        logStopped(exception.what());
    } catch (...) {
        logStopped("an unknown exception");
    }
}

} // namespace vistrel::cocoa
