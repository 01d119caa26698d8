#include "core/Layouts.h"

namespace vistrel {

namespace {

double singlePrecision(double value) {
    return static_cast<float>(value);
}

} // namespace

Rect frameOf(const Layout& layout, const Rect& screen) {
    const auto part = screen.width / layout.divisor;
    return {
        .x = part * layout.steps + layout.offset,
        .y = 0,
        .width = static_cast<double>(truncated(part - layout.margin)),
        .height = screen.height,
    };
}

Rect standardFrame(const Rect& window, const Rect& screen) {
    return {
        .x = window.x,
        .y = window.y,
        .width = singlePrecision(screen.width / 100 * 72),
        .height = singlePrecision(screen.height / 100 * 84),
    };
}

} // namespace vistrel
