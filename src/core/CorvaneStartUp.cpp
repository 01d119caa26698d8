#include "core/Corvane.h"

#include "core/CollectionBehavior.h"
#include "core/MenuBlock.h"
#include "core/StartUpMode.h"
#include "platform/Platform.h"

namespace vistrel {

void Corvane::insertMenu() {
    settings_.load(platform_.fileManager(), platform_.userDefaults());
    makeMainWindowFullScreenCapable();
    countScreens();
    application().log("VTRLog - Screens: " + screensString);
    insertBlock();
    applyStartUpMode();
    if (platform_.userDefaults().integerForKey("windowMode") == 1)
        startRestore();
    resetToggles();
}

void Corvane::makeMainWindowFullScreenCapable() {
    if (platform_.userDefaults().boolForKey("globalSettingsFakeFSABool"))
        makeLionFullscreen();
}

void Corvane::countScreens() {
    if (platform_.userDefaults().boolForKey("vtrDisplaySetupBool")) {
        screens = application().screenCount();
        screensString = std::to_string(screens);
    } else {
        screensString.clear();
    }
}

void Corvane::applyStartUpMode() {
    const auto start = startUpMode(platform_.userDefaults());
    isEnabled = start.isEnabled.value_or(isEnabled);
    if (start.mode)
        application().setSystemUIMode(*start.mode);
    if (start.mode == systemUIHidden)
        setMark(windowMenu(platform_), offset::startUpHidingMark, true);
}

void Corvane::resetToggles() {
    isThreeL = isThreeM = isThreeR = isFullscreen = isLeft = isRight = isFloating = false;
    for (auto* frame : {&rect, &rectLeft, &rectRight, &rectThreeL, &rectThreeM, &rectThreeR})
        *frame = application().keyWindow().frame();
}

} // namespace vistrel
