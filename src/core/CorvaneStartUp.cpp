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
    platform_.application().log("VTRLog - Screens: " + screensString);
    insertBlock();
    applyStartUpMode();
    if (platform_.userDefaults().integerForKey("windowMode") == 1)
        startRestore();
    resetToggles();
}

void Corvane::makeMainWindowFullScreenCapable() {
    if (platform_.userDefaults().boolForKey("globalSettingsFakeFSABool"))
        platform_.application().mainWindow().setCollectionBehavior(fullScreenPrimary);
}

void Corvane::countScreens() {
    if (platform_.userDefaults().boolForKey("vtrDisplaySetupBool")) {
        screens = platform_.application().screenCount();
        screensString = std::to_string(screens);
    } else {
        screensString.clear();
    }
}

void Corvane::applyStartUpMode() {
    const auto start = startUpMode(platform_.userDefaults());
    isEnabled = start.isEnabled.value_or(isEnabled);
    if (start.mode)
        platform_.application().setSystemUIMode(*start.mode);
    if (start.mode == systemUIHidden) {
        auto& menu = windowMenu(platform_);
        menu.itemAtIndex(menu.indexOfZoomItem() + offset::startUpHidingMark).setState(true);
    }
}

void Corvane::resetToggles() {
    isThreeL = isThreeM = isThreeR = isFullscreen = isLeft = isRight = isFloating = false;
    for (auto* frame : {&rect, &rectLeft, &rectRight, &rectThreeL, &rectThreeM, &rectThreeR})
        *frame = platform_.application().keyWindow().frame();
}

} // namespace vistrel
