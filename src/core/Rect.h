#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vistrel {

/// A window or screen frame in screen points. The origin of the coordinate system is the
/// bottom-left corner of the main screen, y grows upwards, as in AppKit's NSRect.
struct Rect {
    double x = 0;
    double y = 0;
    double width = 0;
    double height = 0;

    friend bool operator==(const Rect&, const Rect&) = default;
};

/// `value` without its fraction, towards zero, as a 32-bit integer. Values outside the range become
/// the nearest limit, and what is no number becomes 0.
std::int32_t truncated(double value);

/// The text form of a rectangle: "{{x, y}, {width, height}}", the shape of AppKit's
/// NSStringFromRect. Each number has the fewest decimal digits that read back as exactly the same
/// number. What is no number (an infinity, a NaN) is written as 0.
std::string textFromRect(const Rect& rect);

/// Reads a rectangle from its text form "{{x, y}, {width, height}}" (AppKit's NSRectFromString).
/// Takes the first four decimal numbers of the text in the order x, y, width, height, whatever
/// stands between them. A number that is missing, or too large to be represented, is zero.
Rect rectFromText(std::string_view text);

} // namespace vistrel
