#pragma once

#include <string>
#include <vector>

namespace vistrel::tool {

/// One monitor, in pixels from the upper left corner of all.
struct Monitor {
    std::string name;
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool isPrimary = false;
};

/// What the X server and the window manager say of themselves.
struct DisplayReport {
    /// As $DISPLAY has it.
    std::string name = {};
    /// Why there is nothing to tell, in a sentence. Empty when there is.
    std::string problem = {};
    std::vector<Monitor> monitors = {};
    /// Empty when there is none, or none that tells.
    std::string windowManager = {};
    /// Whether a window manager that follows the EWMH has announced itself.
    bool hasManager = false;
    /// The hints that Vistrel or GNUstep needs and that the manager does not claim to support.
    std::vector<std::string> missingHints = {};
};

DisplayReport reportDisplay();

} // namespace vistrel::tool
