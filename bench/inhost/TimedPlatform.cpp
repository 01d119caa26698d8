#include "TimedPlatform.h"

#include "Report.h"

namespace vistrel::bench {

Window& TimedWindow::bind(Window& window) {
    window_ = &window;
    return *this;
}

void TimedWindow::setFrameAnimated(const Rect& frame) {
    const auto begin = now();
    window_->setFrameAnimated(frame);
    timeOfMoves_ += now() - begin;
}

} // namespace vistrel::bench
