#include "LiteralModel.h"

#include "platform/memory/MemoryHost.h"

#include <algorithm>

namespace vistrel::literal {

namespace {

// What the memory platform does.

Rect keyFrame(const Model& model) {
    if (!model.keyWindow)
        return {};
    return model.windows[*model.keyWindow].frame;
}

/// The frame of the first screen with the centre of `frame` on it, all zero when there is none.
Rect screenUnder(const Model& model, const Rect& frame) {
    const double x = frame.x + frame.width / 2;
    const double y = frame.y + frame.height / 2;
    for (const Rect& screen : model.screens) {
        const bool across = x >= screen.x && x < screen.x + screen.width;
        const bool up = y >= screen.y && y < screen.y + screen.height;
        if (across && up)
            return screen;
    }
    return {};
}

Rect keyScreen(const Model& model) {
    if (!model.keyWindow)
        return {};
    return screenUnder(model, keyFrame(model));
}

void setKeyFrame(Model& model, const Rect& frame) {
    if (!model.keyWindow)
        return;
    Window& window = model.windows[*model.keyWindow];
    model.requests.push_back(window.name + " setFrameAnimated " + textFromRect(frame));
    window.frame = frame;
}

Rect keyFrameForContent(const Model& model, const Rect& content) {
    if (!model.keyWindow)
        return {};
    Rect frame = content;
    frame.height = content.height + memory::MemoryWindow::titleBarHeight;
    return frame;
}

void centerKey(Model& model) {
    if (!model.keyWindow)
        return;
    Window& window = model.windows[*model.keyWindow];
    model.requests.push_back(window.name + " center");
    const Rect screen = screenUnder(model, window.frame);
    window.frame.x = screen.x + (screen.width - window.frame.width) / 2;
    window.frame.y = screen.y + (screen.height - window.frame.height) / 2;
}

void setKeyLevel(Model& model, std::int64_t level) {
    if (!model.keyWindow)
        return;
    Window& window = model.windows[*model.keyWindow];
    model.requests.push_back(window.name + " setLevel " + std::to_string(level));
    window.level = level;
}

void setMainCollectionBehavior(Model& model, std::uint64_t behavior) {
    if (!model.mainWindow)
        return;
    Window& window = model.windows[*model.mainWindow];
    model.requests.push_back(window.name + " setCollectionBehavior " + std::to_string(behavior));
    window.collectionBehavior = behavior;
}

void setSystemUIMode(Model& model, std::uint32_t mode, std::uint32_t options) {
    model.requests.push_back("setSystemUIMode " + std::to_string(mode) + " " +
                             std::to_string(options));
    model.systemUIMode = mode;
    model.systemUIOptions = options;
}

// The Window menu.

Menu* windowMenu(Model& model) {
    for (TopItem& item : model.mainMenu) {
        if (!item.submenu)
            return nullptr;
        if (item.submenu->name == "NSWindowsMenu")
            return &*item.submenu;
    }
    return nullptr;
}

int indexOfZoom(const Menu& menu) {
    for (std::size_t index = 0; index < menu.items.size(); ++index)
        if (menu.items[index].zooms)
            return static_cast<int>(index);
    return -1;
}

Item* itemAt(Menu& menu, int index) {
    if (index < 0 || index >= static_cast<int>(menu.items.size()))
        return nullptr;
    return &menu.items[static_cast<std::size_t>(index)];
}

void setMarkBelowZoom(Model& model, int offset, bool on) {
    Menu* menu = windowMenu(model);
    if (menu == nullptr)
        return;
    Item* item = itemAt(*menu, indexOfZoom(*menu) + offset);
    if (item != nullptr)
        item->isMarked = on;
}

void insertAt(Model& model, Menu& menu, int index, const Item& item) {
    model.requests.push_back("insertItem \"" + item.title + "\" at " + std::to_string(index));
    menu.items.insert(menu.items.begin() + index, item);
}

void insertBelowZoom(Model& model, int offset, const Item& item) {
    Menu* menu = windowMenu(model);
    if (menu != nullptr)
        insertAt(model, *menu, indexOfZoom(*menu) + offset, item);
}

void insertClosingSeparator(Model& model, int offset) {
    Menu* menu = windowMenu(model);
    if (menu == nullptr)
        return;
    const int c = indexOfZoom(*menu) + offset;
    const Item* there = itemAt(*menu, c);
    bool isOfSeparatorClass = false;
    if (there != nullptr && model.separatorsHaveOwnClass)
        isOfSeparatorClass = there->isSeparator;
    if (there != nullptr && !model.separatorsHaveOwnClass)
        isOfSeparatorClass = true;
    if (!isOfSeparatorClass)
        insertAt(model, *menu, c, {.title = "", .isSeparator = true});
}

void insertBlock(Model& model) {
    insertBelowZoom(model, 1, {.title = "", .isSeparator = true});
    insertBelowZoom(model, 2, {.title = "Quorvix's Vistrel"});
    insertBelowZoom(model, 3, {.title = "Settings"});
    insertBelowZoom(model, 4, {.title = "Arrange"});
    insertBelowZoom(model, 5, {.title = "Toggle Fullscreen"});
    insertBelowZoom(model, 6, {.title = "Toggle Menu And Dock"});
    insertBelowZoom(model, 7, {.title = "Toggle Floating Window"});
    insertBelowZoom(model, 8, {.title = "Make OS X Lion Fullscreen Window"});
    if (model.spotlightBOOL) {
        insertBelowZoom(model, 8, {.title = "Show Spotlight Window"});
        insertClosingSeparator(model, 10);
    } else {
        insertClosingSeparator(model, 9);
    }
}

// The start-up modes of menu bar and Dock.

void showAtStartUp(Model& model) {
    model.isEnabled = false;
    setSystemUIMode(model, 0, 0);
}

void hideAtStartUp(Model& model) {
    model.isEnabled = true;
    setSystemUIMode(model, 4, 1);
    setMarkBelowZoom(model, 6, true);
}

void keepAtStartUp(Model& model) {
    model.isEnabled = false;
}

void applyStartUpMode(Model& model) {
    if (model.globalSettingsIndex == 0) {
        if (model.kuiMode == 0)
            showAtStartUp(model);
        if (model.kuiMode == 1)
            hideAtStartUp(model);
        if (model.kuiMode == 2)
            keepAtStartUp(model);
    }
    if (model.globalSettingsIndex == 1)
        showAtStartUp(model);
    if (model.globalSettingsIndex == 2)
        hideAtStartUp(model);
    if (model.globalSettingsIndex == 3)
        keepAtStartUp(model);
}

void countScreens(Model& model) {
    if (model.vtrDisplaySetupBool) {
        model.screenCount = static_cast<std::int32_t>(model.screens.size());
        model.screensString = std::to_string(model.screenCount);
    } else {
        model.screensString = "";
    }
}

/// Through a 32-bit integer, towards zero, and back.
double truncatedWidth(double width) {
    const auto whole = static_cast<std::int32_t>(width);
    return static_cast<double>(whole);
}

double throughSinglePrecision(double value) {
    const auto single = static_cast<float>(value);
    return static_cast<double>(single);
}

void centeringStep(Model& model) {
    centerKey(model);
    if (model.isEnabled) {
        Rect frame = keyFrame(model);
        frame.y = frame.y - 20;
        setKeyFrame(model, frame);
    }
}

void closingStep(Model& model) {
    model.isFullscreen = false;
    setMarkBelowZoom(model, 6, false);
    model.isLeft = false;
    model.isRight = false;
    model.isThreeL = false;
    model.isThreeM = false;
    model.isThreeR = false;
}

} // namespace

void insertMenu(Model& model) {
    if (model.globalSettingsFakeFSABool)
        setMainCollectionBehavior(model, 128);

    countScreens(model);
    model.requests.push_back("log VTRLog - Screens: " + model.screensString);

    insertBlock(model);
    applyStartUpMode(model);

    if (model.windowMode == 1)
        startRestore(model);

    model.isThreeL = false;
    model.isThreeM = false;
    model.isThreeR = false;
    model.isFullscreen = false;
    model.isLeft = false;
    model.isRight = false;
    model.isFloating = false;

    model.rect = keyFrame(model);
    model.rectLeft = keyFrame(model);
    model.rectRight = keyFrame(model);
    model.rectThreeL = keyFrame(model);
    model.rectThreeM = keyFrame(model);
    model.rectThreeR = keyFrame(model);
}

void startRestore(Model& model) {
    countScreens(model);
    const std::string key = "vtr_savedWindowRect" + model.screensString;
    const auto saved = model.savedFrames.find(key);
    if (saved != model.savedFrames.end())
        setKeyFrame(model, saved->second);
}

void saveWind(Model& model) {
    const Rect frame = keyFrame(model);
    countScreens(model);
    std::string message = "Current window frame successfully saved.";
    if (model.vtrDisplaySetupBool)
        message = "Current window frame successfully saved for setup with " + model.screensString +
                  " display(s).";
    const std::string key = "vtr_savedWindowRect" + model.screensString;
    model.requests.push_back("setObject " + key);
    model.savedFrames[key] = frame;
    model.requests.emplace_back("localizedString Success!");
    model.requests.push_back("runAlert \"Success!\" \"" + message + "\" [OK] []");
}

void restoreWind(Model& model) {
    countScreens(model);
    const std::string key = "vtr_savedWindowRect" + model.screensString;
    const auto saved = model.savedFrames.find(key);
    if (saved != model.savedFrames.end()) {
        setKeyFrame(model, saved->second);
    } else {
        const std::string message = "You've yet not saved a window frame for this application.";
        model.requests.emplace_back("localizedString Error!");
        model.requests.push_back("localizedString " + message);
        model.requests.push_back("runAlert \"Error!\" \"" + message + "\" [OK] []");
    }
    model.isFullscreen = false;
    setMarkBelowZoom(model, 6, false);
    model.isLeft = false;
    model.isRight = false;
    model.isThreeL = false;
    model.isThreeM = false;
    model.isThreeR = false;
}

void left(Model& model) {
    if (!model.isLeft) {
        model.rectLeft = keyFrame(model);
        model.isLeft = true;
        const double W = keyScreen(model).width;
        const double H = keyScreen(model).height;
        setKeyFrame(model, {0, 0, truncatedWidth(W / 2 - 2), H});
    } else {
        model.isLeft = false;
        setKeyFrame(model, model.rectLeft);
    }
    model.isFullscreen = false;
    setMarkBelowZoom(model, 6, false);
    model.isRight = false;
    model.isThreeL = false;
    model.isThreeM = false;
    model.isThreeR = false;
}

void right(Model& model) {
    if (!model.isRight) {
        model.rectRight = keyFrame(model);
        model.isRight = true;
        const double W = keyScreen(model).width;
        const double H = keyScreen(model).height;
        setKeyFrame(model, {W / 2 + 1, 0, truncatedWidth(W / 2 - 2), H});
    } else {
        model.isRight = false;
        setKeyFrame(model, model.rectRight);
    }
    model.isFullscreen = false;
    setMarkBelowZoom(model, 6, false);
    model.isLeft = false;
    model.isThreeL = false;
    model.isThreeM = false;
    model.isThreeR = false;
}

void threeL(Model& model) {
    if (!model.isThreeL) {
        model.rectThreeL = keyFrame(model);
        model.isThreeL = true;
        const double W = keyScreen(model).width;
        const double H = keyScreen(model).height;
        setKeyFrame(model, {0, 0, truncatedWidth(W / 3 - 1), H});
    } else {
        model.isThreeL = false;
        setKeyFrame(model, model.rectThreeL);
    }
    model.isFullscreen = false;
    setMarkBelowZoom(model, 6, false);
    // The thirds leave isLeft as it is; only they do.
    model.isRight = false;
    model.isThreeM = false;
    model.isThreeR = false;
}

void threeM(Model& model) {
    if (!model.isThreeM) {
        model.rectThreeM = keyFrame(model);
        model.isThreeM = true;
        const double W = keyScreen(model).width;
        const double H = keyScreen(model).height;
        setKeyFrame(model, {W / 3 + 1, 0, truncatedWidth(W / 3 - 3), H});
    } else {
        model.isThreeM = false;
        setKeyFrame(model, model.rectThreeM);
    }
    model.isFullscreen = false;
    setMarkBelowZoom(model, 6, false);
    model.isRight = false;
    model.isThreeL = false;
    model.isThreeR = false;
}

void threeR(Model& model) {
    if (!model.isThreeR) {
        model.rectThreeR = keyFrame(model);
        model.isThreeR = true;
        const double W = keyScreen(model).width;
        const double H = keyScreen(model).height;
        setKeyFrame(model, {(W / 3) * 2 + 1, 0, truncatedWidth(W / 3 - 1), H});
    } else {
        model.isThreeR = false;
        setKeyFrame(model, model.rectThreeR);
    }
    model.isFullscreen = false;
    setMarkBelowZoom(model, 6, false);
    model.isRight = false;
    model.isThreeL = false;
    model.isThreeM = false;
}

void center(Model& model) {
    centeringStep(model);
    closingStep(model);
}

void centerAverage(Model& model) {
    const Rect F = keyFrame(model);
    const double W = keyScreen(model).width;
    const double H = keyScreen(model).height;
    const double width = throughSinglePrecision(W / 100 * 72);
    const double height = throughSinglePrecision(H / 100 * 84);
    setKeyFrame(model, {F.x, F.y, width, height});
    centeringStep(model);
    closingStep(model);
}

void floating(Model& model) {
    if (!model.isFloating) {
        model.isFloating = true;
        setKeyLevel(model, memory::MemoryHost::floatingLevel);
        setMarkBelowZoom(model, 8, true);
    } else {
        model.isFloating = false;
        setKeyLevel(model, memory::MemoryHost::normalLevel);
        setMarkBelowZoom(model, 8, false);
    }
}

void setKUIMode(Model& model) {
    if (!model.isEnabled) {
        model.isEnabled = true;
        setSystemUIMode(model, 4, 1);
        setMarkBelowZoom(model, 7, true);
    } else {
        model.isEnabled = false;
        setSystemUIMode(model, 0, 0);
        setMarkBelowZoom(model, 7, false);
    }
}

void doFullscreen(Model& model) {
    if (!model.isFullscreen) {
        if (!model.isEnabled)
            setSystemUIMode(model, 4, 1);
        model.rect = keyFrame(model);
        model.requests.emplace_back("performAfterDelay 0.3");
        model.pending.push_back(model.now + 0.3);
        setMarkBelowZoom(model, 6, true);
    } else {
        model.isFullscreen = false;
        setKeyFrame(model, model.rect);
        if (!model.isEnabled)
            setSystemUIMode(model, 0, 0);
        setMarkBelowZoom(model, 6, false);
    }
    model.isLeft = false;
    model.isRight = false;
    model.isThreeL = false;
    model.isThreeM = false;
    model.isThreeR = false;
}

void setFullscreenWithDelay(Model& model) {
    model.isFullscreen = true;
    const Rect S = keyScreen(model);
    const Rect frame = keyFrameForContent(model, S);
    setKeyFrame(model, frame);
}

void makeLionFullscreen(Model& model) {
    setMainCollectionBehavior(model, 128);
}

void spotlight(Model& model) {
    model.requests.emplace_back("showSearchWindow \"\" 0");
}

void advance(Model& model, double seconds) {
    const double end = model.now + seconds;
    while (!model.pending.empty()) {
        const auto next = std::min_element(model.pending.begin(), model.pending.end());
        if (*next > end)
            break;
        model.now = *next;
        model.pending.erase(next);
        setFullscreenWithDelay(model);
    }
    model.now = end;
}

} // namespace vistrel::literal
