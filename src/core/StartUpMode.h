#pragma once

#include "core/SystemUIMode.h"

#include <optional>

namespace vistrel {

class UserDefaults;

/// What the start-up does with menu bar and Dock.
struct StartUpMode {
    /// New value of the controller's isEnabled; nullopt leaves it.
    std::optional<bool> isEnabled = {};
    /// The mode to call for; nullopt makes no call.
    std::optional<SystemUIMode> mode = {};

    friend bool operator==(const StartUpMode&, const StartUpMode&) = default;
};

/// The mode that the host defaults ask for.
///
/// "globalSettingsIndex" 1 shows menu bar and Dock, 2 hides them, 3 leaves the system alone, and 0
/// leaves the choice to the application's own "kuiMode", whose 0, 1 and 2 mean the same three.
/// Anything else does nothing.
StartUpMode startUpMode(const UserDefaults& defaults);

} // namespace vistrel
