#pragma once

#include <array>
#include <string_view>

namespace vistrel {

/// The actions that menu items send to the controller.
enum class Command {
    about,
    openWebsite,
    updates,
    quorvix,
    preferences,
    saveWind,
    restoreWind,
    center,
    centerAverage,
    left,
    right,
    threeL,
    threeM,
    threeR,
    doFullscreen,
    setKUIMode,
    floating,
    makeLionFullscreen,
    spotlight,
};

/// The name of the action method that performs `command`, such as "center:".
constexpr std::string_view actionName(Command command) {
    constexpr std::array<std::string_view, 19> names{
        "about:",       "openWebsite:", "updates:",
        "quorvix:",     "preferences:", "saveWind:",
        "restoreWind:", "center:",      "centerAverage:",
        "left:",        "right:",       "threeL:",
        "threeM:",      "threeR:",      "doFullscreen:",
        "setKUIMode:",  "floating:",    "makeLionFullscreen:",
        "spotlight:",
    };
    return names[static_cast<std::size_t>(command)];
}

} // namespace vistrel
