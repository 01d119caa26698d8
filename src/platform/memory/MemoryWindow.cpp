#include "platform/memory/MemoryWindow.h"

#include "platform/memory/Nothing.h"

#include <algorithm>

namespace vistrel::memory {

Rect MemoryWindow::frame() const {
    log_.record(name_, " frame");
    return frame_;
}

Screen& MemoryWindow::screen() {
    log_.record(name_, " screen");
    return screenAtCentre();
}

Screen& MemoryWindow::screenAtCentre() {
    const auto x = frame_.x + frame_.width / 2;
    const auto y = frame_.y + frame_.height / 2;
    const auto found = std::ranges::find_if(desktop_.screens, [x, y](const Rect& screen) {
        return x >= screen.x && x < screen.x + screen.width && y >= screen.y &&
               y < screen.y + screen.height;
    });
    if (found == desktop_.screens.end())
        return noScreen;
    return screen_.show(*found);
}

void MemoryWindow::setFrameAnimated(const Rect& frame) {
    log_.record(name_, " setFrameAnimated ", frame);
    frame_ = frame;
}

Rect MemoryWindow::frameRectForContentRect(const Rect& content) const {
    log_.record(name_, " frameRectForContentRect ", content);
    return {content.x, content.y, content.width, content.height + titleBarHeight};
}

void MemoryWindow::center() {
    log_.record(name_, " center");
    const auto area = screenAtCentre().frame();
    frame_.x = area.x + (area.width - frame_.width) / 2;
    frame_.y = area.y + (area.height - frame_.height) / 2;
}

void MemoryWindow::setLevel(std::int64_t newLevel) {
    log_.record(name_, " setLevel ", newLevel);
    level = newLevel;
}

void MemoryWindow::setCollectionBehavior(std::uint64_t behavior) {
    log_.record(name_, " setCollectionBehavior ", behavior);
    collectionBehavior = behavior;
}

void MemoryWindow::makeKeyAndOrderFront() {
    log_.record(name_, " makeKeyAndOrderFront");
}

} // namespace vistrel::memory
