#pragma once

#include <string>
#include <string_view>

namespace vistrel {

/// A modal alert: what NSRunAlertPanel (NSPanel.h) is given.
struct Alert {
    std::string title;
    /// A text, never a format: a percent sign in it is shown as one.
    std::string message;
    /// The button that Return presses.
    std::string_view defaultButton;
    /// The second button, or empty for none.
    std::string_view alternateButton = {};
};

} // namespace vistrel
