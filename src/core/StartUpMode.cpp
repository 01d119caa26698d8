#include "core/StartUpMode.h"

#include "platform/Platform.h"

namespace vistrel {

namespace {

enum Policy : std::int64_t { applicationsOwn = 0, show = 1, hide = 2, leaveAsIs = 3 };

StartUpMode modeFor(std::int64_t policy) {
    switch (policy) {
    case show:
        return {.isEnabled = false, .mode = systemUINormal};
    case hide:
        return {.isEnabled = true, .mode = systemUIHidden};
    case leaveAsIs:
        return {.isEnabled = false};
    default:
        return {};
    }
}

StartUpMode modeForKuiMode(std::int64_t kuiMode) {
    switch (kuiMode) {
    case 0:
        return modeFor(show);
    case 1:
        return modeFor(hide);
    case 2:
        return modeFor(leaveAsIs);
    default:
        return {};
    }
}

} // namespace

StartUpMode startUpMode(const UserDefaults& defaults) {
    const auto policy = defaults.integerForKey("globalSettingsIndex");
    return policy == applicationsOwn ? modeForKuiMode(defaults.integerForKey("kuiMode"))
                                     : modeFor(policy);
}

} // namespace vistrel
