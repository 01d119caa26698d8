#include "core/Corvane.h"

#include "core/CollectionBehavior.h"
#include "core/MenuBlock.h"
#include "platform/Platform.h"

namespace vistrel {

void Corvane::setKUIMode() {
    auto& menu = windowMenu(platform_);
    isEnabled = !isEnabled;
    application().setSystemUIMode(isEnabled ? systemUIHidden : systemUINormal);
    setMark(menu, offset::hidingMark, isEnabled);
}

void Corvane::doFullscreen() {
    auto& menu = windowMenu(platform_);
    if (isFullscreen)
        leaveFullscreen(menu);
    else
        enterFullscreen(menu);
    clearHalvesAndThirds();
}

/// isFullscreen stays false until the delayed step has run, so a second call before that enters
/// again.
void Corvane::enterFullscreen(Menu& menu) {
    constexpr double delay = 0.3;
    if (!isEnabled)
        application().setSystemUIMode(systemUIHidden);
    rect = application().keyWindow().frame();
    application().performAfterDelay(delay, [this] { setFullscreenWithDelay(); });
    setMark(menu, offset::fullscreenMark, true);
}

void Corvane::leaveFullscreen(Menu& menu) {
    isFullscreen = false;
    application().keyWindow().setFrameAnimated(rect);
    if (!isEnabled)
        application().setSystemUIMode(systemUINormal);
    setMark(menu, offset::fullscreenMark, false);
}

void Corvane::setFullscreenWithDelay() {
    isFullscreen = true;
    const auto screen = application().keyWindow().screen().frame();
    const auto frame = application().keyWindow().frameRectForContentRect(screen);
    application().keyWindow().setFrameAnimated(frame);
}

void Corvane::makeLionFullscreen() {
    application().mainWindow().setCollectionBehavior(fullScreenPrimary);
}

void Corvane::spotlight() {
    application().showSearchWindow("", 0);
}

} // namespace vistrel
