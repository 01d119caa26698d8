#include "platform/memory/MemoryResources.h"

#include "platform/memory/Nothing.h"

namespace vistrel::memory {

Window& MemoryOutlets::window() {
    if (loadedWindow)
        return *loadedWindow;
    return noWindow;
}

void MemoryOutlets::setAppName(std::string_view name) {
    appName = name;
}

std::string MemoryResources::infoText(std::string_view key) const {
    const auto found = info.find(key);
    return found != info.end() ? found->second : std::string();
}

WindowController* MemoryResources::makePreferencesController() {
    if (!canMakeControllers)
        return nullptr;
    preferences = std::make_unique<MemoryWindowController<VTRPreferencesController>>(
        platform_, log_, desktop_, "VTRPreferences");
    preferences->canLoad = canLoadInterfaces;
    return preferences.get();
}

WindowController* MemoryResources::makeAboutController() {
    if (!canMakeControllers)
        return nullptr;
    about = std::make_unique<MemoryWindowController<VTRAboutNIBController>>(platform_, log_,
                                                                            desktop_, "VTRAbout");
    about->canLoad = canLoadInterfaces;
    return about.get();
}

} // namespace vistrel::memory
