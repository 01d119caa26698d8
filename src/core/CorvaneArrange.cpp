#include "core/Corvane.h"

#include "core/Layouts.h"
#include "core/MenuBlock.h"
#include "core/WindowLevel.h"
#include "platform/Platform.h"

namespace vistrel {

void Corvane::left() {
    toggle(leftHalf);
}

void Corvane::right() {
    toggle(rightHalf);
}

void Corvane::threeL() {
    toggle(leftThird);
}

void Corvane::threeM() {
    toggle(middleThird);
}

void Corvane::threeR() {
    toggle(rightThird);
}

void Corvane::toggle(const Layout& layout) {
    CorvaneFields& fields = *this;
    auto& isOn = fields.*layout.flag;
    auto& saved = fields.*layout.savedFrame;
    if (!isOn) {
        saved = application().keyWindow().frame();
        isOn = true;
        const auto screen = application().keyWindow().screen().frame();
        application().keyWindow().setFrameAnimated(frameOf(layout, screen));
    } else {
        isOn = false;
        application().keyWindow().setFrameAnimated(saved);
    }
    isFullscreen = false;
    setMark(windowMenu(platform_), offset::fullscreenMark, false);
    for (const auto flag : layout.clearedFlags)
        if (flag != nullptr)
            fields.*flag = false;
}

void Corvane::center() {
    centerKeyWindow();
    endLayouts();
}

void Corvane::centerAverage() {
    const auto frame = application().keyWindow().frame();
    const auto screen = application().keyWindow().screen().frame();
    application().keyWindow().setFrameAnimated(standardFrame(frame, screen));
    centerKeyWindow();
    endLayouts();
}

void Corvane::centerKeyWindow() {
    constexpr double drop = 20;
    application().keyWindow().center();
    if (!isEnabled)
        return;
    auto frame = application().keyWindow().frame();
    frame.y -= drop;
    application().keyWindow().setFrameAnimated(frame);
}

void Corvane::endLayouts() {
    isFullscreen = false;
    setMark(windowMenu(platform_), offset::fullscreenMark, false);
    clearHalvesAndThirds();
}

void Corvane::clearHalvesAndThirds() {
    isLeft = isRight = isThreeL = isThreeM = isThreeR = false;
}

void Corvane::floating() {
    auto& menu = windowMenu(platform_);
    isFloating = !isFloating;
    const auto key = isFloating ? floatingWindowLevelKey : normalWindowLevelKey;
    const auto level = application().windowLevelForKey(key);
    application().keyWindow().setLevel(level);
    setMark(menu, offset::floatingMark, isFloating);
}

} // namespace vistrel
