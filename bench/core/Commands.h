#pragma once

#include "TestHost.h"

#include <array>
#include <cstdint>

namespace vistrel {

using Action = void (Corvane::*)();

struct NamedCommand {
    const char* name;
    Action action;
};

inline constexpr std::array commands{
    NamedCommand{"left", &Corvane::left},
    NamedCommand{"right", &Corvane::right},
    NamedCommand{"threeL", &Corvane::threeL},
    NamedCommand{"threeM", &Corvane::threeM},
    NamedCommand{"threeR", &Corvane::threeR},
    NamedCommand{"center", &Corvane::center},
    NamedCommand{"centerAverage", &Corvane::centerAverage},
    NamedCommand{"doFullscreen", &Corvane::doFullscreen},
    NamedCommand{"floating", &Corvane::floating},
    NamedCommand{"setKUIMode", &Corvane::setKUIMode},
    NamedCommand{"makeLionFullscreen", &Corvane::makeLionFullscreen},
    NamedCommand{"spotlight", &Corvane::spotlight},
    NamedCommand{"saveWind", &Corvane::saveWind},
    NamedCommand{"restoreWind", &Corvane::restoreWind},
};

/// A host whose Window menu has this many items above Zoom.
inline void fill(TestHost& it, std::int64_t itemsAboveZoom) {
    auto& menu = it.addEmptyWindowMenu();
    for (std::int64_t count = 0; count < itemsAboveZoom; ++count)
        menu.add("Document", "makeKeyAndOrderFront:");
    menu.add("Zoom", "performZoom:");
    it.addFrontWindow();
    it.host.calls.isRecording = false;
}

} // namespace vistrel
