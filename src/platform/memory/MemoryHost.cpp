#include "platform/memory/MemoryHost.h"

#include "core/WindowLevel.h"
#include "platform/memory/Nothing.h"

namespace vistrel::memory {

MemoryHost::MemoryHost(MemoryDesktop& desktop, bool separatorsHaveOwnClass)
    : desktop_(desktop), separatorsHaveOwnClass_(separatorsHaveOwnClass) {}

std::string MemoryHost::localizedString(std::string_view textKey) const {
    calls.record("localizedString ", textKey);
    const auto found = strings.find(textKey);
    return found != strings.end() ? found->second : std::string(textKey);
}

Menu& MemoryHost::mainMenu() {
    calls.record("mainMenu");
    if (mainMenu_)
        return *mainMenu_;
    return noMenu;
}

Window& MemoryHost::keyWindow() {
    calls.record("keyWindow");
    if (key != nullptr)
        return *key;
    return noWindow;
}

Window& MemoryHost::mainWindow() {
    calls.record("mainWindow");
    if (main != nullptr)
        return *main;
    return noWindow;
}

std::int32_t MemoryHost::screenCount() const {
    return static_cast<std::int32_t>(desktop_.screens.size());
}

void MemoryHost::setSystemUIMode(SystemUIMode mode) {
    calls.record("setSystemUIMode ", mode.mode, " ", mode.options);
    systemUIMode = mode;
}

std::int32_t MemoryHost::windowLevelForKey(std::int32_t levelKey) const {
    calls.record("windowLevelForKey ", levelKey);
    return levelKey == floatingWindowLevelKey ? floatingLevel : normalLevel;
}

void MemoryHost::showSearchWindow(std::string_view text, std::uint32_t options) {
    calls.record("showSearchWindow \"", text, "\" ", options);
}

void MemoryHost::performAfterDelay(double seconds, std::function<void()> call) {
    calls.record("performAfterDelay ", seconds);
    desktop_.clock.add(seconds, std::move(call));
}

bool MemoryHost::runAlert(const Alert& alert) {
    calls.record("runAlert \"", alert.title, "\" \"", alert.message, "\" [", alert.defaultButton,
                 "] [", alert.alternateButton, "]");
    alerts.push_back(alert);
    if (duringAlert)
        duringAlert();
    return acceptsAlerts;
}

void MemoryHost::terminate() {
    calls.record("terminate");
}

void MemoryHost::log(std::string_view line) {
    calls.record("log ", line);
    logLines.emplace_back(line);
}

MemoryMenu& MemoryHost::addMainMenu() {
    mainMenu_ = std::make_unique<MemoryMenu>(calls, std::string(), separatorsHaveOwnClass_);
    return *mainMenu_;
}

MemoryWindow& MemoryHost::addWindow(std::string name, const Rect& frame) {
    windows_.push_back(std::make_unique<MemoryWindow>(calls, desktop_, std::move(name), frame));
    return *windows_.back();
}

} // namespace vistrel::memory
