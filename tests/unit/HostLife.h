#pragma once

#include "HostShapes.h"
#include "LiteralModel.h"
#include "Random.h"
#include "TestHost.h"

#include <array>
#include <bit>
#include <deque>
#include <optional>
#include <span>
#include <sstream>
#include <string_view>

namespace vistrel {

inline constexpr std::size_t mostWindows = 8;
inline constexpr std::size_t mostScreens = 3;
inline constexpr std::size_t mostItems = 24;
inline constexpr std::size_t stepsShown = 20;

// The steps of the core, by name.

struct CommandStep {
    std::string_view name;
    void (Corvane::*inCore)();
    void (*inModel)(literal::Model&);
};

inline constexpr std::array commandSteps{
    CommandStep{"left", &Corvane::left, literal::left},
    CommandStep{"right", &Corvane::right, literal::right},
    CommandStep{"threeL", &Corvane::threeL, literal::threeL},
    CommandStep{"threeM", &Corvane::threeM, literal::threeM},
    CommandStep{"threeR", &Corvane::threeR, literal::threeR},
    CommandStep{"center", &Corvane::center, literal::center},
    CommandStep{"centerAverage", &Corvane::centerAverage, literal::centerAverage},
    CommandStep{"floating", &Corvane::floating, literal::floating},
    CommandStep{"setKUIMode", &Corvane::setKUIMode, literal::setKUIMode},
    CommandStep{"doFullscreen", &Corvane::doFullscreen, literal::doFullscreen},
    CommandStep{"makeLionFullscreen", &Corvane::makeLionFullscreen, literal::makeLionFullscreen},
    CommandStep{"spotlight", &Corvane::spotlight, literal::spotlight},
    CommandStep{"startRestore", &Corvane::startRestore, literal::startRestore},
    CommandStep{"saveWind", &Corvane::saveWind, literal::saveWind},
    CommandStep{"restoreWind", &Corvane::restoreWind, literal::restoreWind},
};

// What the core asked of the host.

inline bool startsWithOneOf(std::string_view line, std::span<const std::string_view> starts) {
    return std::ranges::any_of(starts, [line](auto start) { return line.starts_with(start); });
}

/// Questions, which change nothing. Whatever else there is has to be in the model.
inline bool isQuestion(std::string_view line) {
    constexpr std::array<std::string_view, 8> questions{
        "mainMenu",       "keyWindow",   "mainWindow",    "windowLevelForKey ",
        "integerForKey ", "boolForKey ", "objectForKey ", "fileExists ",
    };
    return startsWithOneOf(line, questions);
}

/// What the start-up does about the settings file is no concern of the model.
inline bool isSettingsRequest(std::string_view line) {
    constexpr std::array<std::string_view, 4> requests{"createDirectory ", "readDictionary ",
                                                       "setInteger ", "setBool "};
    return startsWithOneOf(line, requests);
}

/// Whether the line is something that a window was asked, and not a change.
inline bool isWindowQuestion(std::string_view line) {
    return line.ends_with(" frame") || line.ends_with(" screen") ||
           line.find(" frameRectForContentRect ") != line.npos;
}

/// Every window of the walk is called "w" and a number.
inline bool isToWindow(std::string_view line) {
    return line.size() > 1 && line[0] == 'w' && line[1] >= '0' && line[1] <= '9';
}

/// Whether each operation on a window had a look-up of its own: the key window may be another one
/// after any operation.
inline bool windowIsAlwaysAskedAnew(const std::vector<std::string>& lines) {
    bool isAsked = false;
    for (const auto& line : lines) {
        if (line == "keyWindow" || line == "mainWindow") {
            isAsked = true;
        } else if (isToWindow(line)) {
            if (!isAsked)
                return false;
            isAsked = false;
        }
    }
    return true;
}

// Comparing.

/// Also the sign of a zero counts.
inline bool isSame(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

inline bool isSame(const Rect& a, const Rect& b) {
    return isSame(a.x, b.x) && isSame(a.y, b.y) && isSame(a.width, b.width) &&
           isSame(a.height, b.height);
}

template <typename T> bool isSame(const T& a, const T& b) {
    return a == b;
}

/// What differs between the model and the core. A text is made only for what does.
class Differences {
  public:
    template <typename What, typename Value>
    void compare(const What& what, const Value& expected, const Value& actual) {
        if (isSame(expected, actual))
            return;
        std::ostringstream line;
        line << std::boolalpha << "  " << what << ": expected " << testing::PrintToString(expected)
             << ", is " << testing::PrintToString(actual) << '\n';
        text += line.str();
    }

    std::string text;
};

inline void compareFields(const literal::Model& model, const CorvaneFields& fields,
                          Differences& found) {
    found.compare("screens", model.screenCount, fields.screens);
    found.compare("screensString", model.screensString, fields.screensString);
    found.compare("isEnabled", model.isEnabled, fields.isEnabled);
    found.compare("isFullscreen", model.isFullscreen, fields.isFullscreen);
    found.compare("isLeft", model.isLeft, fields.isLeft);
    found.compare("isRight", model.isRight, fields.isRight);
    found.compare("isThreeL", model.isThreeL, fields.isThreeL);
    found.compare("isThreeM", model.isThreeM, fields.isThreeM);
    found.compare("isThreeR", model.isThreeR, fields.isThreeR);
    found.compare("isFloating", model.isFloating, fields.isFloating);
    found.compare("rect", model.rect, fields.rect);
    found.compare("rectLeft", model.rectLeft, fields.rectLeft);
    found.compare("rectRight", model.rectRight, fields.rectRight);
    found.compare("rectThreeL", model.rectThreeL, fields.rectThreeL);
    found.compare("rectThreeM", model.rectThreeM, fields.rectThreeM);
    found.compare("rectThreeR", model.rectThreeR, fields.rectThreeR);
}

inline void compareItems(const literal::Menu& expected, const memory::MemoryMenu& actual,
                         Differences& found) {
    found.compare("number of items", expected.items.size(), actual.items().size());
    if (expected.items.size() != actual.items().size())
        return;
    for (std::size_t index = 0; index < expected.items.size(); ++index) {
        found.compare("title of an item", expected.items[index].title,
                      actual.items()[index]->title);
        if (expected.items[index].isMarked != actual.items()[index]->state)
            found.compare("mark of item " + std::to_string(index), expected.items[index].isMarked,
                          actual.items()[index]->state);
    }
}

/// One life of a host: from the loading of the bundle on, commands, users and the system in any
/// order, each step done in the core and in the model of it, and everything compared after each
/// step.
class HostLife {
  public:
    HostLife(const Shape& shape, Random& random)
        : shape_(shape), random_(random), it_(desktop_, shape.separatorsHaveOwnClass) {
        makeWorld();
        makeSettings();
    }

    /// Loads the bundle. What differs after it, empty when nothing does.
    std::string start() {
        it_.host.calls.isRecording = true;
        it_.load();
        it_.host.calls.isRecording = false;
        auto& lines = it_.host.calls.lines;
        std::erase_if(lines, isSettingsRequest);
        literal::insertMenu(model_);
        return differences();
    }

    /// Does one step. What differs after it, empty when nothing does.
    std::string step() {
        it_.host.calls.lines.clear();
        model_.requests.clear();
        const auto kind = random_.below(1000);
        if (kind < 600)
            command();
        else if (kind < 740)
            passTime();
        else if (kind < 880)
            moveWindow();
        else
            changeWorld();
        return differences();
    }

    /// The latest steps, one in a line.
    [[nodiscard]] std::string history() const {
        std::string result;
        for (const auto& step : steps_)
            result += "  " + step + '\n';
        return result;
    }

  private:
    void did(std::string step) {
        steps_.push_back(std::move(step));
        if (steps_.size() > stepsShown)
            steps_.pop_front();
    }

    // Before the start.

    void makeWorld() {
        it_.host.calls.isRecording = false;
        desktop_.screens.clear();
        for (auto count = random_.below(mostScreens + 1); count > 0; --count)
            addScreen();
        model_.separatorsHaveOwnClass = shape_.separatorsHaveOwnClass;
        exchangeMenus();
        for (auto count = random_.below(4); count > 0; --count)
            openWindow();
        if (!windows_.empty() && !random_.oneIn(4)) {
            makeKey(random_.below(windows_.size()));
            makeMain(random_.below(windows_.size()));
        }
        changeSystemUIMode();
    }

    void makeSettings() {
        model_.globalSettingsIndex = random_.between(-1, 4);
        if (random_.oneIn(2))
            model_.globalSettingsIndex = 0;
        model_.kuiMode = random_.between(-1, 3);
        model_.windowMode = random_.between(0, 2);
        model_.spotlightBOOL = shape_.spotlight;
        model_.globalSettingsFakeFSABool = random_.oneIn(3);
        model_.vtrDisplaySetupBool = random_.oneIn(2);
        it_.setDefault("kuiMode", model_.kuiMode);
        it_.setDefault("windowMode", model_.windowMode);
        for (auto count = random_.below(4); count > 0; --count)
            saveFrame();
        desktop_.files["/home/user/Library/Application Support/Vistrel/Settings.plist"] =
            PropertyList(Dictionary{
                {"globalSettingsIndex", model_.globalSettingsIndex},
                {"spotlightBOOL", model_.spotlightBOOL},
                {"globalSettingsFakeFSABool", model_.globalSettingsFakeFSABool},
                {"vtrDisplaySetupBool", model_.vtrDisplaySetupBool},
            });
        did("start with globalSettingsIndex " + std::to_string(model_.globalSettingsIndex) +
            ", kuiMode " + std::to_string(model_.kuiMode) + ", windowMode " +
            std::to_string(model_.windowMode));
    }

    // Steps of the bundle.

    void command() {
        const auto& chosen = commandSteps[random_.below(commandSteps.size())];
        did(std::string(chosen.name));
        it_.host.calls.isRecording = true;
        ((*it_.corvane.m).*chosen.inCore)();
        it_.host.calls.isRecording = false;
        chosen.inModel(model_);
    }

    void passTime() {
        constexpr std::array amounts{0.3, 0.3, 0.3, 0.0, 0.1, 0.15, 0.2, 0.299, 0.3001, 0.6, 5.0};
        const auto seconds = random_.oneIn(3) ? static_cast<double>(random_.below(700)) / 1000
                                              : random_.pick(amounts);
        did("wait " + std::to_string(seconds));
        it_.host.calls.isRecording = true;
        desktop_.clock.advance(seconds);
        it_.host.calls.isRecording = false;
        literal::advance(model_, seconds);
    }

    // Steps of the user and the system.

    void changeWorld() {
        using Change = void (HostLife::*)();
        constexpr std::array<Change, 26> changes{
            &HostLife::changeKeyWindow,  &HostLife::changeKeyWindow,
            &HostLife::changeKeyWindow,  &HostLife::changeKeyWindow,
            &HostLife::changeKeyWindow,  &HostLife::changeMainWindow,
            &HostLife::changeMainWindow, &HostLife::changeMainWindow,
            &HostLife::openWindow,       &HostLife::openWindow,
            &HostLife::closeWindow,      &HostLife::noKeyWindow,
            &HostLife::noMainWindow,     &HostLife::addScreen,
            &HostLife::addScreen,        &HostLife::removeScreen,
            &HostLife::resizeScreen,     &HostLife::resizeScreen,
            &HostLife::resizeScreen,     &HostLife::markItem,
            &HostLife::markItem,         &HostLife::changeSystemUIMode,
            &HostLife::saveFrame,        &HostLife::changeDisplaySetup,
            &HostLife::changeWindow,     &HostLife::changeMenus,
        };
        (this->*random_.pick(changes))();
    }

    Rect randomFrame() {
        const auto width = random_.number(1, 1500);
        const auto height = random_.number(1, 1000);
        if (model_.screens.empty() || random_.oneIn(5))
            return {random_.number(-5000, 5000), random_.number(-5000, 5000), width, height};
        const auto& screen = model_.screens[random_.below(model_.screens.size())];
        return {screen.x + screen.width / 2 - width / 2, screen.y + screen.height / 2 - height / 2,
                width, height};
    }

    /// With sizes that round in all directions. The two long ones are where dividing by 100 before
    /// multiplying gives another single-precision number than multiplying first.
    Rect randomScreen() {
        constexpr std::array widths{1440.0, 1366.0, 1280.0,   1000.0, 1.0,
                                    2.0,    3.0,    5.0,      8.5,    0.75,
                                    1366.5, 1919.9, 100.3333, 2560.0, 1360.9819624159072};
        constexpr std::array heights{900.0, 768.0, 800.0, 1.0, 1079.5, 333.3, 811.2190973191033};
        Rect screen{0, 0, random_.pick(widths), random_.pick(heights)};
        if (random_.oneIn(4))
            screen.width = random_.number(1, 4000);
        if (!model_.screens.empty()) {
            screen.x = random_.number(-3000, 3000);
            screen.y = random_.number(-2000, 2000);
        }
        return screen;
    }

    void setFrame(std::size_t window, const Rect& frame) {
        windows_[window]->setFrameAnimated(frame);
        model_.windows[window].frame = frame;
    }

    void moveWindow() {
        if (windows_.empty())
            return openWindow();
        const auto window =
            random_.oneIn(4) ? random_.below(windows_.size()) : model_.keyWindow.value_or(0);
        const auto frame = randomFrame();
        setFrame(window, frame);
        did("the user puts w" + std::to_string(window) + " to " + textFromRect(frame));
    }

    void openWindow() {
        if (windows_.size() >= mostWindows)
            return changeKeyWindow();
        const auto name = "w" + std::to_string(windows_.size());
        const auto frame = randomFrame();
        windows_.push_back(&it_.host.addWindow(name, frame));
        model_.windows.push_back({.name = name, .frame = frame});
        isOpen_.push_back(true);
        makeKey(windows_.size() - 1);
        makeMain(windows_.size() - 1);
        did(name + " opens at " + textFromRect(frame));
    }

    /// A closed window keeps what it was given, and nobody may touch it any more.
    void closeWindow() {
        if (windows_.empty())
            return;
        const auto window = random_.below(windows_.size());
        isOpen_[window] = false;
        if (model_.keyWindow == window)
            noKeyWindow();
        if (model_.mainWindow == window)
            noMainWindow();
        did("w" + std::to_string(window) + " closes");
    }

    void changeKeyWindow() {
        if (const auto window = anOpenWindow()) {
            makeKey(*window);
            did("w" + std::to_string(*window) + " becomes key");
        }
    }

    void changeMainWindow() {
        if (const auto window = anOpenWindow()) {
            makeMain(*window);
            did("w" + std::to_string(*window) + " becomes main");
        }
    }

    std::optional<std::size_t> anOpenWindow() {
        std::vector<std::size_t> open;
        for (std::size_t window = 0; window < isOpen_.size(); ++window)
            if (isOpen_[window])
                open.push_back(window);
        if (open.empty())
            return std::nullopt;
        return open[random_.below(open.size())];
    }

    void makeKey(std::size_t window) {
        it_.host.key = windows_[window];
        model_.keyWindow = window;
    }

    void makeMain(std::size_t window) {
        it_.host.main = windows_[window];
        model_.mainWindow = window;
    }

    void noKeyWindow() {
        it_.host.key = nullptr;
        model_.keyWindow.reset();
        did("no window is key");
    }

    void noMainWindow() {
        it_.host.main = nullptr;
        model_.mainWindow.reset();
        did("no window is main");
    }

    /// The host itself sets level and behaviour, so that a value of the bundle shows again.
    void changeWindow() {
        if (windows_.empty())
            return;
        const auto window = random_.below(windows_.size());
        const auto behavior = static_cast<std::uint64_t>(random_.below(1024));
        const std::int64_t level = random_.between(0, 200);
        windows_[window]->level = model_.windows[window].level = level;
        windows_[window]->collectionBehavior = behavior;
        model_.windows[window].collectionBehavior = behavior;
        did("w" + std::to_string(window) + " gets level " + std::to_string(level) +
            " and behavior " + std::to_string(behavior));
    }

    void addScreen() {
        if (model_.screens.size() >= mostScreens)
            return;
        model_.screens.push_back(randomScreen());
        showScreens();
    }

    void removeScreen() {
        if (!model_.screens.empty()) {
            const auto screen = random_.below(model_.screens.size());
            model_.screens.erase(model_.screens.begin() + static_cast<std::ptrdiff_t>(screen));
        }
        showScreens();
    }

    void resizeScreen() {
        if (!model_.screens.empty())
            model_.screens[random_.below(model_.screens.size())] = randomScreen();
        showScreens();
    }

    void showScreens() {
        desktop_.screens = model_.screens;
        std::string step = "the screens are";
        for (const auto& screen : model_.screens)
            step += " " + textFromRect(screen);
        did(std::move(step));
    }

    void changeSystemUIMode() {
        const auto mode = static_cast<std::uint32_t>(random_.below(5));
        const auto options = static_cast<std::uint32_t>(random_.below(3));
        it_.host.systemUIMode = {.mode = mode, .options = options};
        model_.systemUIMode = mode;
        model_.systemUIOptions = options;
        did("the host sets system UI mode " + std::to_string(mode) + " " + std::to_string(options));
    }

    void saveFrame() {
        constexpr std::array<std::string_view, 5> suffixes{"", "0", "1", "2", "3"};
        const auto key = "vtr_savedWindowRect" + std::string(random_.pick(suffixes));
        const auto frame = randomFrame();
        it_.setDefault(key, textFromRect(frame));
        model_.savedFrames[key] = frame;
        did(key + " is " + textFromRect(frame));
    }

    void changeDisplaySetup() {
        model_.vtrDisplaySetupBool = !model_.vtrDisplaySetupBool;
        it_.setDefault("vtrDisplaySetupBool", model_.vtrDisplaySetupBool);
        did("vtrDisplaySetupBool is " + testing::PrintToString(model_.vtrDisplaySetupBool));
    }

    /// Shows or clears the mark of any item, so that a command that clears a mark, or does not, is
    /// seen to.
    void markItem() {
        if (menus_.empty())
            return;
        const auto at = random_.below(menus_.size());
        if (menus_[at] == nullptr || menus_[at]->items().empty())
            return;
        const auto index = random_.below(menus_[at]->items().size());
        auto& item = model_.mainMenu[at].submenu->items[index];
        item.isMarked = !item.isMarked;
        menus_[at]->items()[index]->state = item.isMarked;
        did("the host marks item " + std::to_string(index) + " of menu " + std::to_string(at) +
            ": " + testing::PrintToString(item.isMarked));
    }

    void changeMenus() {
        if (random_.oneIn(8))
            exchangeMenus();
        else
            insertIntoMenu();
    }

    /// The host builds its menus anew, and the block is gone.
    void exchangeMenus() {
        const auto menus = shape_.menus();
        if (menus.empty())
            return;
        model_.mainMenu = menus;
        menus_ = giveMenus(it_.host, menus);
        did("the host builds its menus");
    }

    /// An item of the host's own, anywhere: the Zoom item may move by it, and so does every mark.
    void insertIntoMenu() {
        if (menus_.empty() || menus_.back() == nullptr)
            return;
        auto& menu = *menus_.back();
        auto& items = model_.mainMenu.back().submenu->items;
        if (items.size() >= mostItems)
            return;
        const auto index = random_.between(0, static_cast<int>(items.size()));
        menu.insertItem({.title = "Document"}, index);
        items.insert(items.begin() + index, {.title = "Document"});
        did("the host inserts an item at " + std::to_string(index));
    }

    // Comparing.

    std::string differences() {
        Differences found;
        compareRequests(found);
        compareFields(model_, it_.fields(), found);
        compareWindows(found);
        compareMenus(found);
        found.compare("mode of the system UI", model_.systemUIMode, it_.host.systemUIMode.mode);
        found.compare("options of the system UI", model_.systemUIOptions,
                      it_.host.systemUIMode.options);
        return std::move(found.text);
    }

    void compareRequests(Differences& found) {
        auto& lines = it_.host.calls.lines;
        found.compare("every window is asked for anew", true, windowIsAlwaysAskedAnew(lines));
        std::erase_if(lines, [](const auto& line) {
            return isQuestion(line) || (isToWindow(line) && isWindowQuestion(line));
        });
        found.compare("requests", model_.requests, lines);
    }

    void compareWindows(Differences& found) {
        for (std::size_t window = 0; window < windows_.size(); ++window) {
            const auto& expected = model_.windows[window];
            const auto& actual = *windows_[window];
            found.compare("frame of a window", expected.frame, actual.frame());
            found.compare("level of a window", expected.level, actual.level);
            found.compare("behavior of a window", expected.collectionBehavior,
                          actual.collectionBehavior);
        }
    }

    void compareMenus(Differences& found) {
        for (std::size_t at = 0; at < menus_.size(); ++at)
            if (menus_[at] != nullptr)
                compareItems(*model_.mainMenu[at].submenu, *menus_[at], found);
    }

    const Shape& shape_;
    Random& random_;
    memory::MemoryDesktop desktop_;
    TestHost it_;
    literal::Model model_;
    std::vector<memory::MemoryMenu*> menus_;
    std::vector<memory::MemoryWindow*> windows_;
    std::vector<bool> isOpen_;
    std::deque<std::string> steps_;
};

} // namespace vistrel
